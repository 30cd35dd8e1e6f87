# shellcheck shell=bash disable=SC2154,SC2164
# Qt for Windows, shared, with its own copies of zlib, png, jpeg and the like. The building
# machine's Qt gives moc, rcc and uic, so both are the same version.

qt_options=(
    -DBUILD_SHARED_LIBS=ON -DCMAKE_BUILD_TYPE=Release
    -DQT_BUILD_TESTS=OFF -DQT_BUILD_EXAMPLES=OFF
    -DINPUT_opengl=no -DINPUT_openssl=no -DFEATURE_schannel=ON
)
for feature in sql dbus vulkan printsupport glib zstd brotli icu system_zlib system_png \
    system_jpeg system_freetype system_harfbuzz system_pcre2 system_doubleconversion; do
    qt_options+=("-DFEATURE_$feature=OFF")
done

# Debian's source is without the headers of the drawing tablets' Windows interface.
remove_wintab() {
    local platforms=$work/src/qt6-base/src/plugins/platforms
    sed -i 's/QT_CONFIG(tabletevent)/0/' "$platforms"/windows/*.{h,cpp}
    sed -i 's/CONDITION QT_FEATURE_tabletevent/CONDITION FALSE/' \
        "$platforms"/{windows,direct2d}/CMakeLists.txt
}

configure_qt() {
    rm -rf "$work/build/qt" "$out/qt"
    # The toolchain file looks for Qt there.
    mkdir -p "$out/qt"
    cmake -S "$work/src/qt6-base" -B "$work/build/qt" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$repository/packaging/windows/toolchain-mingw64.cmake" \
        -DVANTIRO_WINDOWS_SDK="$out" -DCMAKE_INSTALL_PREFIX="$out/qt" "${qt_options[@]}"
}

build_qt6-base() {
    unpack_source qt6-base
    remove_wintab
    configure_qt
    cmake --build "$work/build/qt" --parallel "$jobs"
    cmake --install "$work/build/qt" --strip
}
