# Shared by the tests of the package, which source this file with the folder of the package as $1.
# shellcheck shell=bash disable=SC2034,SC2154

readonly test_name=package.${0##*/}

fail() {
    echo "$test_name: $*" >&2
    exit 1
}

skip() {
    echo "SKIP   : $test_name: $*"
    exit 77
}

for tool in "${tools[@]}"; do
    command -v "$tool" >/dev/null ||
        fail "$tool is missing; scripts/bootstrap --test --package installs it"
done

shopt -s nullglob
packages=("$1"/*.deb)
shopt -u nullglob
case ${#packages[@]} in
0) fail "no package in $1; run cpack first, or scripts/package" ;;
1) ;;
*) fail "several packages in $1; remove the old ones" ;;
esac
# shellcheck disable=SC2034  # for the scripts that source this one
readonly package=${packages[0]}

# Unpacks the package into $unpacked, which is removed when the test ends.
unpack() {
    unpacked=$(mktemp -d)
    trap 'rm -rf "$unpacked"' EXIT
    dpkg-deb --extract "$package" "$unpacked"
}
