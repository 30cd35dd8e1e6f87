#include "fakeprovider/Gzip.h"

using namespace Qt::StringLiterals;

namespace {

quint32 crc32(const QByteArray &data)
{
    quint32 crc = 0xFFFFFFFFU;
    for (const char character : data) {
        crc ^= static_cast<quint8>(character);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1U) ^ ((crc & 1U) != 0U ? 0xEDB88320U : 0U);
    }
    return ~crc;
}

void appendLittleEndian(QByteArray &bytes, quint32 number)
{
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes.append(static_cast<char>((number >> shift) & 0xFFU));
}

} // namespace

QByteArray packedWithGzip(const QByteArray &data)
{
    // qCompress gives four bytes of length, then a zlib stream: two bytes of head, the deflated
    // data, four bytes of check sum. gzip wraps the same deflated data in another way.
    // It makes no stream of empty data; that deflates to one empty block.
    const QByteArray zlib = qCompress(data);
    QByteArray result("\x1f\x8b\x08\x00\x00\x00\x00\x00\x00\xff", 10);
    result += data.isEmpty() ? QByteArray("\x03\x00", 2) : zlib.sliced(6, zlib.size() - 10);
    appendLittleEndian(result, crc32(data));
    appendLittleEndian(result, static_cast<quint32>(data.size()));
    return result;
}
