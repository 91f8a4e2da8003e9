# Sourced by scripts in the project's folder: the version, read where it stands, and where it is repeated.

# package_version: as the packages have it, 0.3~betha
package_version() { sed -n '1s/^kedrin (\([^)]*\)).*/\1/p' debian/changelog; }

# shown_version: as the programs print it, 0.3-betha
shown_version() { package_version | tr '~' -; }

# differing_versions: a line "FILE: VERSION" for each file whose newest version is another one.
differing_versions() {
    local wanted file version
    wanted=$(shown_version)
    for file in CHANGELOG.md data/*.metainfo.xml*; do
        case $file in
            *.md) version=$(sed -n '/^## /{s/^## \[\?\([^] ]*\).*/\1/p;q}' "$file") ;;
            *'*'*) continue ;;
            *) version=$(sed -n '/<release /{s/.*version="\([^"]*\)".*/\1/p;q}' "$file" | tr '~' -) ;;
        esac
        [ "$version" = "$wanted" ] || [ "$version" = @KEDRIN_VERSION@ ] || echo "$file: $version"
    done
}
