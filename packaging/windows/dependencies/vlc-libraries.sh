# shellcheck shell=bash disable=SC2154,SC2164
# The smaller libraries of libVLC's plugins, all static, in $sysroot.

# Runs an autotools build out of tree ($1: package; rest: configure options).
build_autotools() {
    local package=$1
    shift
    rm -rf "$work/build/$package"
    mkdir -p "$work/build/$package"
    cd "$work/build/$package"
    "$work/src/$package/configure" --prefix="$sysroot" --host="$host" --build=x86_64-linux-gnu \
        --enable-static --disable-shared "$@"
    make -j"$jobs"
    make install
}

# MPEG transport streams.
build_libdvbpsi() {
    unpack_source libdvbpsi
    build_autotools libdvbpsi --disable-debug
}

# The text of subtitles.
build_freetype() {
    unpack_source freetype
    build_autotools freetype --with-zlib=no --with-bzip2=no --with-png=no --with-harfbuzz=no \
        --with-brotli=no
}

# Numbers, ciphers and TLS, for https.
build_gmp() {
    unpack_source gmp
    # Debian removed the manual from the source but did not update configure.
    (cd "$work/src/gmp" && autoreconf -fi)
    CC_FOR_BUILD=gcc build_autotools gmp --disable-assembly
}

build_nettle() {
    unpack_source nettle
    # Only the libraries: the build would run its own programs, which need Windows.
    rm -rf "$work/build/nettle"
    mkdir -p "$work/build/nettle"
    cd "$work/build/nettle"
    "$work/src/nettle/configure" --prefix="$sysroot" --libdir="$sysroot/lib" --host="$host" \
        --build=x86_64-linux-gnu --enable-static --disable-shared --disable-documentation \
        --disable-openssl --with-include-path="$sysroot/include" --with-lib-path="$sysroot/lib"
    make -j"$jobs" libnettle.a libhogweed.a
    make install-headers install-static install-pkgconfig
}

build_gnutls28() {
    unpack_source gnutls28
    # Debian's patches add a source file. The manual is not built, so its tool is not needed.
    (cd "$work/src/gnutls28" && GTKDOCIZE=true autoreconf -fi)
    GMP_CFLAGS=-I$sysroot/include GMP_LIBS="-L$sysroot/lib -lgmp" \
        build_autotools gnutls28 --with-included-libtasn1 --with-included-unistring \
        --without-p11-kit --without-idn --without-zlib --without-brotli --without-zstd \
        --without-tpm --without-tpm2 --disable-tools --disable-doc --disable-tests --disable-cxx \
        --disable-nls --disable-guile --disable-libdane --disable-maintainer-mode \
        --disable-full-test-suite
    # The header assumes a DLL.
    sed -i 's/__declspec(dllimport)//' "$sysroot/include/gnutls/gnutls.h"
}
