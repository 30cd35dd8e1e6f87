#pragma once

#include <QByteArray>

#include <zlib.h>

/// The bytes as one member of gzip.
inline QByteArray gzipped(const QByteArray &bytes)
{
    constexpr int gzipOnly = 16 + MAX_WBITS;
    z_stream stream{};
    if (deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, gzipOnly, MAX_MEM_LEVEL,
                     Z_DEFAULT_STRATEGY) != Z_OK) {
        qFatal("deflateInit2");
    }
    QByteArray packed(static_cast<qsizetype>(deflateBound(&stream, uLong(bytes.size()))),
                      Qt::Uninitialized);
    QByteArray input = bytes;
    stream.next_in = reinterpret_cast<Bytef *>(input.data());
    stream.avail_in = static_cast<uInt>(input.size());
    stream.next_out = reinterpret_cast<Bytef *>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    if (deflate(&stream, Z_FINISH) != Z_STREAM_END) {
        qFatal("deflate");
    }
    packed.resize(packed.size() - qsizetype(stream.avail_out));
    deflateEnd(&stream);
    return packed;
}
