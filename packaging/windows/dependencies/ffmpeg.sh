# shellcheck shell=bash disable=SC2154,SC2164
# FFmpeg's decoders, demuxers and parsers for the formats of television and its archives, as static
# libraries for libVLC's plugins. LGPL configuration; libVLC itself handles network and files.

ffmpeg_decoders=(
    av1 flv h261 h263 h264 hevc mjpeg mpeg1video mpeg2video mpeg4 msmpeg4v1 msmpeg4v2 msmpeg4v3
    png rv30 rv40 theora vc1 vp6 vp6a vp6f vp8 vp9 wmv1 wmv2 wmv3
    aac aac_latm ac3 alac amrnb amrwb cook dca eac3 flac mlp mp1 mp1float mp2 mp2float mp3 mp3float
    opus truehd vorbis wmalossless wmapro wmav1 wmav2 wmavoice
    adpcm_ima_qt adpcm_ima_wav adpcm_ms adpcm_swf pcm_alaw pcm_bluray pcm_dvd pcm_mulaw pcm_s16be
    pcm_s16le pcm_s24be pcm_s24le pcm_s32le pcm_u8 pcm_f32le
    ass ccaption dvbsub dvdsub movtext pgssub srt ssa subrip text webvtt xsub
)
ffmpeg_demuxers=(
    aac ac3 asf avi dts eac3 flac flv h264 hevc matroska mov mp3 mpegps mpegts mpegvideo mpjpeg ogg
    rm truehd wav
)

ffmpeg_list() {
    local IFS=,
    echo "$*"
}

build_ffmpeg() {
    unpack_source ffmpeg
    cd "$work/src/ffmpeg"
    ./configure --prefix="$sysroot" --enable-cross-compile --arch=x86_64 --target-os=mingw64 \
        --cross-prefix="$host-" --cc="$CC" --cxx="$CXX" \
        --pkg-config=pkg-config --pkg-config-flags=--static \
        --enable-static --disable-shared --disable-debug --disable-programs --disable-doc \
        --disable-network --disable-avdevice --disable-avfilter --disable-autodetect \
        --enable-w32threads --enable-zlib --enable-d3d11va --enable-dxva2 \
        --disable-everything --enable-parsers --enable-bsfs --enable-hwaccels \
        --enable-decoder="$(ffmpeg_list "${ffmpeg_decoders[@]}")" \
        --enable-demuxer="$(ffmpeg_list "${ffmpeg_demuxers[@]}")"
    make -j"$jobs"
    make install
}
