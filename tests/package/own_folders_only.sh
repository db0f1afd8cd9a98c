# shellcheck shell=bash
# Which folders a program or a library makes the loader search.

# own_folders_only FILE...: fails for a file that searches other folders than those beside itself. For
# an empty element, and for one without $ORIGIN, the loader would take what lies in the current folder
# or in somebody else's.
own_folders_only() {
    local file elements element foreign=0
    for file in "$@"; do
        elements=$(readelf -d -W "$file" | sed -nE 's/.*\((RUNPATH|RPATH)\).*\[(.*)\]$/\2/p')
        [ -n "$elements" ] || continue
        while IFS= read -r -d : element; do
            # shellcheck disable=SC2016  # the loader's own word
            [[ $element == '$ORIGIN' || $element == '$ORIGIN/'* ]] || {
                echo "$file: has the loader search '$element' ($elements)"
                foreign=1
            }
        done <<<"$elements:"
    done
    return "$foreign"
}
