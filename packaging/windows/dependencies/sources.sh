# shellcheck shell=bash disable=SC2154,SC2164
# Debian's source packages, whose signatures apt checks, without a change to the system's configuration:
# the machine's binary entries of its Debian release are used as source entries.

# Turns the deb822 stanzas of release $1 into source entries.
source_stanzas() {
    awk -v release="$1" '
        BEGIN { RS = ""; FS = "\n" }
        {
            text = ""; is_deb = main = ours = 0; enabled = 1
            for (i = 1; i <= NF; ++i) {
                if ($i ~ /^#/) continue
                if ($i ~ /^Types:.*deb/) { is_deb = 1; $i = "Types: deb-src" }
                if ($i ~ /^Components:(.* )?main( |$)/) main = 1
                if ($i ~ "^Suites:(.* )?" release "(-[a-z]+)?( |$)") ours = 1
                if (tolower($i) ~ /^enabled: *no/) enabled = 0
                text = text $i "\n"
            }
            if (is_deb && main && ours && enabled) print text
        }'
}

# Turns the one-line entries of release $1 into source entries.
source_lines() {
    local release=$1
    sed -nE "/cdrom:/d; s/^deb(-src)? +(.* $release(-[a-z]+)?\/? +(.* )?main( .*)?)\$/deb-src \2/p" | sort -u
}

# Creates the private apt configuration and reads its package lists.
prepare_sources() {
    local home=$work/apt release
    # shellcheck source=/dev/null
    release=$(. /etc/os-release && echo "${VERSION_CODENAME:?no release name in /etc/os-release}")
    mkdir -p "$home"/{entries,lists/partial,cache/archives/partial}
    # An empty line between files.
    # shellcheck disable=SC2016
    find /etc/apt/sources.list.d -name '*.sources' -exec sed -s '$G' {} + |
        source_stanzas "$release" >"$home/entries/release.sources"
    find /etc/apt -maxdepth 2 -name '*.list' -exec cat {} + |
        source_lines "$release" >"$home/entries/release.list"
    apt_options=(
        -o "Dir::Etc::sourcelist=/dev/null" -o "Dir::Etc::sourceparts=$home/entries"
        -o "Dir::State::lists=$home/lists" -o "Dir::Cache=$home/cache"
        -o "APT::Sandbox::User=$(id -un)"
    )
    apt-get "${apt_options[@]}" -q update
}

# Prints the versions of source package $1 that the entries offer, the newest first.
source_versions() {
    apt-cache "${apt_options[@]}" showsrc --only-source "$1" | sed -n 's/^Version: //p' |
        sort -u | sort -rV
}

# Unpacks Debian's source package $1 with Debian's patches into a new $work/src/$1, and keeps its
# copyright file for the built folder. Mirrors may drop files that their lists still name. Then the
# next older version is used, with a warning. A dropped file may also be put into $work/downloads by
# hand: apt uses it if it has the checksum of the signed lists.
unpack_source() {
    local package=$1 version dsc=
    [ -n "${apt_options:-}" ] || prepare_sources
    mkdir -p "$work/downloads" "$work/src" "$out/licenses/$package"
    cd "$work/downloads"
    for version in $(source_versions "$package"); do
        if apt-get "${apt_options[@]}" -q source --download-only --only-source "$package=$version"
        then
            dsc=${package}_${version#*:}.dsc
            break
        fi
        echo "$program: warning: could not get $package $version" >&2
    done
    [ -n "$dsc" ]
    rm -rf "$work/src/$package"
    dpkg-source --no-check -x "$dsc" "$work/src/$package"
    cp "$work/src/$package/debian/copyright" "$out/licenses/$package/copyright"
    echo "$version" >"$out/licenses/$package/version"
}
