# Sourced by ./package and ./test-package, in the project's folder.

# source_files: the names of the project's files, each ended by a zero byte, without what git ignores.
source_files() {
    if [ -e .git ]; then
        git ls-files -z --cached --others --exclude-standard --deduplicate
    else
        find . \( -path ./build -o -path ./obj-\* \) -prune -o \( -type f -o -type l \) -printf '%P\0'
    fi | while IFS= read -r -d '' file; do # a file may be deleted, but not yet for git
        if [ -e "$file" ] || [ -L "$file" ]; then printf '%s\0' "$file"; fi
    done
}

# copy_sources FOLDER: the files, with the same permissions and times wherever they are copied from.
copy_sources() {
    local time
    time=$(dpkg-parsechangelog --show-field Timestamp)
    source_files | tar --create --no-recursion --null --files-from - --mode u=rwX,go=rX --mtime "@$time" |
        tar --extract --directory "$1"
}
