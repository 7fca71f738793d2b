# What ./run and ./test share: installing what is missing, and building. Sourced; $root is the project's folder.

# install_packages KIND...: installs the packages of scripts/packages.txt that are of these kinds and not there yet.
install_packages() {
    wanted=$(for kind in "$@"; do awk -v kind="$kind" '$1 !~ /^#/ && $2 == kind { print $1 }' "$root/scripts/packages.txt"; done)
    # shellcheck disable=SC2086 # a list of words
    present=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' $wanted 2>/dev/null | awk '$1 == "installed" { print $2 }' || true)
    missing=$(for package in $wanted; do printf '%s\n' "$present" | grep -qxF "$package" || echo "$package"; done)
    [ -z "$missing" ] && return
    echo "Installing:" $missing >&2
    as_root=
    [ "$(id -u)" = 0 ] || as_root=sudo
    $as_root apt-get update -q
    # shellcheck disable=SC2086
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends $missing
}

# build PRESET [TARGET...]: an incremental build below build/PRESET.
build() {
    preset=$1
    shift
    # Without this the check for new compilers would cost a second start its speed.
    [ -f "$root/build/$preset/build.ninja" ] || (cd "$root" && cmake --preset "$preset" >&2)
    run_ninja() { cmake --build "$root/build/$preset" ${1:+--target "$@"}; }
    run_ninja "$@" -- -n | grep -q "no work to do" || run_ninja "$@" >&2
}
