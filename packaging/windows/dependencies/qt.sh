# shellcheck shell=bash disable=SC2154,SC2164
# Qt for Windows as shared libraries, with its own copies of zlib, png, jpeg, webp and others. moc, rcc
# and uic are those of the building machine's Qt, so both versions are equal.

qt_options=(
    -DBUILD_SHARED_LIBS=ON -DCMAKE_BUILD_TYPE=Release
    -DQT_BUILD_TESTS=OFF -DQT_BUILD_EXAMPLES=OFF
    -DINPUT_opengl=no -DINPUT_openssl=no -DFEATURE_schannel=ON -DFEATURE_sql=ON
)
for feature in dbus vulkan printsupport glib zstd brotli icu system_zlib system_png \
    system_jpeg system_freetype system_harfbuzz system_pcre2 system_doubleconversion \
    system_sqlite sql_odbc sql_mysql sql_psql; do
    qt_options+=("-DFEATURE_$feature=OFF")
done

imageformats_options=(-DCMAKE_BUILD_TYPE=Release -DQT_BUILD_TESTS=OFF -DQT_BUILD_EXAMPLES=OFF)
for feature in system_webp tiff jasper mng; do
    imageformats_options+=("-DFEATURE_$feature=OFF")
done

# Generates SQLite's amalgamated source file, which Qt compiles, with programs of the building machine.
build_sqlite3() {
    unpack_source sqlite3
    rm -rf "$work/build/sqlite3"
    mkdir -p "$work/build/sqlite3"
    cd "$work/build/sqlite3"
    CC=gcc "$work/src/sqlite3/configure" --disable-tcl --disable-readline
    make sqlite3.c
}

# Debian's source lacks SQLite.
add_sqlite() {
    local folder=$work/src/qt6-base/src/3rdparty/sqlite
    mkdir -p "$folder"
    cp "$work/build/sqlite3/"sqlite3.{c,h} "$folder/"
}

# Debian's source lacks the headers of Windows' interface to drawing tablets.
remove_wintab() {
    local platforms=$work/src/qt6-base/src/plugins/platforms
    sed -i 's/QT_CONFIG(tabletevent)/0/' "$platforms"/windows/*.{h,cpp}
    sed -i 's/CONDITION QT_FEATURE_tabletevent/CONDITION FALSE/' \
        "$platforms"/{windows,direct2d}/CMakeLists.txt
}

# Configures Qt module $1 (rest: options) in $work/build/$1, to be installed into the built folder.
configure_qt() {
    local module=$1
    shift
    rm -rf "$work/build/$module"
    cmake -S "$work/src/$module" -B "$work/build/$module" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$repository/packaging/windows/toolchain-mingw64.cmake" \
        -DVANTIRO_WINDOWS_SDK="$out" -DCMAKE_INSTALL_PREFIX="$out/qt" "$@"
}

build_qt6-base() {
    unpack_source qt6-base
    remove_wintab
    add_sqlite
    rm -rf "$out/qt"
    # The toolchain file expects Qt there.
    mkdir -p "$out/qt"
    configure_qt qt6-base "${qt_options[@]}"
    cmake --build "$work/build/qt6-base" --parallel "$jobs"
    cmake --install "$work/build/qt6-base" --strip
}

# The plugin for WebP. Posters do not use the module's other formats.
build_qt6-imageformats() {
    unpack_source qt6-imageformats
    configure_qt qt6-imageformats "${imageformats_options[@]}"
    cmake --build "$work/build/qt6-imageformats" --parallel "$jobs" --target QWebpPlugin
    cmake --install "$work/build/qt6-imageformats/src/plugins/imageformats/webp" --strip
}
