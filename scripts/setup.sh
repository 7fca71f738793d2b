# shellcheck shell=bash disable=SC2154
# What ./run and ./test share: installing what is missing, and building. Sourced by bash; $root is the project's folder.
set -o pipefail

# missing_packages KIND...: those of scripts/packages.txt that are of these kinds and not installed.
missing_packages() {
    local package kind mark installed
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' | sed -n 's/^installed //p')
    while read -r package kind mark; do
        [[ " $* " == *" $kind "* ]] || continue
        grep -qxF "$package" <<<"$installed" && continue
        [[ $mark != "?" ]] || apt-cache show "$package" >/dev/null 2>&1 || continue
        echo "$package"
    done < <(grep -v '^#' "$root/scripts/packages.txt")
}

# install_packages KIND...
install_packages() {
    # A second start doesn't ask again, unless the list or what is installed has changed since.
    local checked="$root/build/packages-$*" as_root=
    [[ $checked -nt $root/scripts/packages.txt && $checked -nt /var/lib/dpkg/status ]] && return
    if [ -n "$(missing_packages "$@")" ]; then
        [ "$(id -u)" = 0 ] || as_root=sudo
        $as_root apt-get update -q
        # Only now is it known which of them this release has.
        # shellcheck disable=SC2046 # a list of words
        $as_root env DEBIAN_FRONTEND=noninteractive \
            apt-get install -q -y --no-install-recommends $(missing_packages "$@")
    fi >&2
    mkdir -p "$root/build"
    touch "$checked"
}

# configure PRESET [OPTION]: build/PRESET, unless that is done, and with this option on.
configure() {
    local folder=$root/build/$1
    # Asking CMake itself takes seconds: it looks for the compilers again.
    [ -f "$folder/build.ninja" ] && { [ -z "${2-}" ] || grep -q "^$2:BOOL=ON" "$folder/CMakeCache.txt"; } && return
    (cd "$root" && cmake --preset "$1" ${2:+-D$2=ON}) >&2
}

# build PRESET [TARGET...]: an incremental build below build/PRESET. One with nothing to do says nothing.
build() {
    configure "$1"
    ninja -C "$root/build/$1" "${@:2}" 2>&1 |
        sed -u -e '/^ninja: Entering/d' -e '/Re-checking globbed/d' -e '/^ninja: no work/d' >&2
}
