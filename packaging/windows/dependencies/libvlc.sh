# shellcheck shell=bash disable=SC2154,SC2164
# libVLC itself: the core, the API and the plugins as DLLs.

# Copies Debian's and the compiler's static libraries into $sysroot, where the linker finds them before
# the corresponding DLLs, so that plugins need no other DLL.
collect_static_libraries() {
    local name
    for name in z gcrypt gpg-error winpthread stdc++; do
        cp "$("$CXX" -print-file-name="lib$name.a")" "$sysroot/lib/"
    done
    cp "/usr/$host/lib/pkgconfig/zlib.pc" "$sysroot/lib/pkgconfig/"
    for name in libz-mingw-w64-dev libgcrypt-mingw-w64-dev libgpg-error-mingw-w64-dev; do
        mkdir -p "$out/licenses/$name"
        cp "/usr/share/doc/$name/copyright" "$out/licenses/$name/copyright"
    done
}

# Debian packages no iconv for Windows, and those of its C libraries (musl, newlib) cannot be built
# apart from them. This one is tested in tests/iconv.
build_iconv() {
    local object=$work/build/iconv.o
    "$CC" -std=c11 -O2 -Wall -Wextra -c "$parts/iconv/iconv.c" -o "$object"
    rm -f "$sysroot/lib/libiconv.a"
    "$host-ar" rcs "$sysroot/lib/libiconv.a" "$object"
    cp "$parts/iconv/iconv.h" "$sysroot/include/"
}

vlc_options=(
    --disable-debug --disable-nls --disable-vlc --disable-sout --disable-vlm
    --disable-addonmanagermodules --disable-update-check
    # programs and desktop integration
    --disable-lua --disable-qt --disable-skins2 --disable-ncurses --disable-dbus --disable-xcb
    --disable-screen --disable-sdl-image --disable-libcddb --disable-vcd
    # codecs and containers that FFmpeg handles, and missing libraries
    --disable-live555 --disable-mad --disable-a52 --disable-x264 --disable-mod --disable-mpc
    --disable-taglib --disable-libass --disable-fontconfig --disable-projectm --disable-postproc
    --disable-fribidi --disable-harfbuzz --disable-chromecast
    # required features
    --enable-avcodec --enable-avformat --enable-swscale --enable-dvbpsi --enable-freetype
    --enable-telx --enable-gnutls --enable-libgcrypt --enable-dxva2 --enable-d3d11va --enable-wasapi
    --enable-optimize-memory
)

configure_libvlc() {
    rm -rf "$work/build/vlc"
    mkdir -p "$work/build/vlc"
    cd "$work/build/vlc"
    # WINEPREFIX keeps configure from starting an installed Wine. No maintainer mode: Debian's patches,
    # none of them for Windows, would cause everything to be generated again. _WIN32_WINNT is Windows
    # 10, the compiler's default, which configure does not know.
    WINEPREFIX=/dev/null BUILDCC=gcc \
        CPPFLAGS="-I$sysroot/include -D_WIN32_WINNT=0x0A00" \
        LDFLAGS="-L$sysroot/lib -static-libgcc" \
        GCRYPT_LIBS="-lgcrypt -lgpg-error -lws2_32 -ladvapi32" \
        "$work/src/vlc/configure" --host="$host" --build=x86_64-linux-gnu \
        --prefix="$work/vlc-installed" --with-contrib=no --disable-maintainer-mode \
        "${vlc_options[@]}"
}

# Copies the files that a program needs into the built folder.
install_libvlc() {
    local from=$work/vlc-installed bin=$out/libvlc/bin
    rm -rf "$out/libvlc"
    mkdir -p "$bin/plugins" "$out/libvlc/lib"
    cp -r "$from/include" "$out/libvlc/include"
    rm -rf "$out/libvlc/include/vlc/plugins"
    find "$from/lib" -maxdepth 1 -name 'libvlc.dll.a' -exec cp {} "$out/libvlc/lib/" \;
    find "$from/bin" -maxdepth 1 -name '*.dll' -exec cp {} "$bin/" \;
    (cd "$from/lib/vlc/plugins" && find . -name '*_plugin.dll' -exec cp --parents {} "$bin/plugins/" \;)
    find "$bin" -name '*.dll' -exec "$host-strip" --strip-unneeded {} +
}

build_vlc() {
    unpack_source vlc
    collect_static_libraries
    configure_libvlc
    make -j"$jobs"
    rm -rf "$work/vlc-installed"
    make install
    install_libvlc
}
