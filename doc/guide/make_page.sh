#!/usr/bin/env bash
# make_page.sh CMARK SOURCE.md PAGE.html: makes a page of the guide. The list at the end of index.md in the folder of
# the source names all pages in their order. Nothing is left behind by a page that cannot be made.
set -euo pipefail
cmark=$1 source=$2 html=$3
folder=$(dirname "$(realpath "$source")")
name=$(basename "$source" .md)
case $(basename "$folder") in
    bg) language=bg other=en other_name=English guide='Ръководство на Kedrin' start='Начало' pages='Страници' ;;
    en) language=en other=bg other_name=Български guide='Kedrin guide' start='Start' pages='Pages' ;;
esac

title=$(sed -n '1s/^# //p' "$source")
[ -n "$title" ] || { echo "$source: the first line is no title" >&2 && exit 1; }

# name TAB title of each page
list=$(printf 'index\t%s\n' "$start" && sed -nE 's/^- \[(.*)\]\(([a-z-]+)\.md\)$/\2\t\1/p' "$folder/index.md")
order=$(cut -f 1 <<<"$list")
grep -qx "$name" <<<"$order" || { echo "$source: index.md does not list this page" >&2 && exit 1; }

# entry NAME TITLE: a page in the list
entry() {
    if [ "$1" = "$name" ]; then
        printf '<li><a href="%s.html" aria-current="page">%s</a></li>\n' "$1" "$2"
    else
        printf '<li><a href="%s.html">%s</a></li>\n' "$1" "$2"
    fi
}

# neighbour LINE REL ARROWS: a link to the page in the line of the list
neighbour() {
    [ -n "$1" ] || return 0
    printf '<a rel="%s" href="%s.html">' "$2" "${1%%$'\t'*}"
    # shellcheck disable=SC2059 # a format with the place of the title
    printf "$3" "${1#*$'\t'}"
    printf '</a>\n'
}

page() {
    cat <<END
<!DOCTYPE html>
<html lang="$language">
<head>
<meta charset="utf-8" />
<meta name="viewport" content="width=device-width, initial-scale=1" />
<title>$title – $guide</title>
<link rel="stylesheet" href="../guide.css" />
</head>
<body>
<nav aria-label="$pages">
<p><a href="../$other/$name.html" hreflang="$other" lang="$other">$other_name</a></p>
<ul>
END
    while IFS=$'\t' read -r page page_title; do entry "$page" "$page_title"; done <<<"$list"
    echo '</ul>'
    echo '</nav>'
    echo '<main>'
    "$cmark" --extension table "$source" | sed -E 's/(href="[a-z-]+)\.md(["#])/\1.html\2/g'
    echo '<p class="neighbours">'
    neighbour "$(grep -B 1 "^$name	" <<<"$list" | head -n 1 | grep -v "^$name	" || true)" prev '← %s'
    neighbour "$(grep -A 1 "^$name	" <<<"$list" | tail -n 1 | grep -v "^$name	" || true)" next '%s →'
    echo '</p>'
    echo '</main>'
    echo '</body>'
    echo '</html>'
}

mkdir -p "$(dirname "$html")"
page >"$html.new"
mv "$html.new" "$html"
