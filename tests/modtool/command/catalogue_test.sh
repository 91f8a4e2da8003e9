#!/usr/bin/env bash
# The catalogue of messages has a translation for every text in the sources, and no others.
#   catalogue_test.sh CATALOGUE.po SOURCE-FOLDER...
set -euo pipefail
catalogue=$1
shift
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

xgettext --language=C++ --from-code=UTF-8 --sort-output --omit-header --keyword --keyword=tr --keyword=translated --keyword=translatable \
    --keyword=message --keyword=counted:2,3 --keyword=wording:2,3 --keyword=occasions:3,4 --keyword=addCommand:3 \
    --flag=message:1:c-format -o "$work/texts.pot" $(find "$@" -name "*.cpp" -o -name "*.h") 2>"$work/said" || { cat "$work/said"; exit 1; }
[ "$(grep -c '^msgid ' "$work/texts.pot")" -gt 300 ] || { echo "xgettext found too few texts"; exit 1; }

msgcmp --use-untranslated "$catalogue" "$work/texts.pot" || exit 1
untranslated=$(msgattrib --untranslated --no-obsolete "$catalogue")
[ -z "$untranslated" ] || { echo "without translation:"; echo "$untranslated"; exit 1; }
unused=$(msgcomm --less-than=2 "$catalogue" "$work/texts.pot" | sed -n '/^msgid ""$/!p' | grep '^msgid' || true)
[ -z "$unused" ] || { echo "no text of the sources:"; echo "$unused"; exit 1; }
