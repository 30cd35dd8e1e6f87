#include "guide/GuideUnpacker.h"

#include <array>
#include <utility>

#define ZLIB_CONST
#include <zlib.h>

namespace {

constexpr QByteArrayView gzipMark("\x1f\x8b");
/// Of XZ, bzip2, Zstandard, ZIP and 7-Zip.
constexpr std::array otherMarks{
    QByteArrayView("\xfd\x37\x7a\x58\x5a"), QByteArrayView("BZh"),
    QByteArrayView("\x28\xb5\x2f\xfd"),     QByteArrayView("PK\x03\x04"),
    QByteArrayView("\x37\x7a\xbc\xaf"),
};
constexpr qsizetype longestMark = 5;
constexpr std::size_t bufferBytes = 128UL * 1024;

} // namespace

/// One layer of gzip: members, one behind the other, and padding.
class GuideUnpacker::Layer
{
public:
    Layer() { valid = inflateInit2(&stream, gzipOnly) == Z_OK; }
    ~Layer() { inflateEnd(&stream); }
    Q_DISABLE_COPY_MOVE(Layer)

    Result unpack(QByteArrayView bytes, const std::function<Result(QByteArrayView)> &take)
    {
        stream.next_in = reinterpret_cast<const Bytef *>(bytes.data());
        stream.avail_in = static_cast<uInt>(bytes.size());
        while (stream.avail_in > 0 || bufferWasFull) {
            if (betweenMembers && !beginMember()) {
                return Result::Good;
            }
            stream.next_out = reinterpret_cast<Bytef *>(buffer.data());
            stream.avail_out = static_cast<uInt>(buffer.size());
            const int status = valid ? inflate(&stream, Z_NO_FLUSH) : Z_MEM_ERROR;
            bufferWasFull = stream.avail_out == 0;
            const auto size = static_cast<qsizetype>(buffer.size() - stream.avail_out);
            if (const Result result = take({buffer.data(), size}); result != Result::Good) {
                return result;
            }
            if (status == Z_STREAM_END) {
                betweenMembers = true;
                bufferWasFull = false;
            } else if (status == Z_BUF_ERROR) {
                return Result::Good;
            } else if (status != Z_OK) {
                return Result::Damaged;
            }
        }
        return Result::Good;
    }

private:
    static constexpr int gzipOnly = 16 + MAX_WBITS;

    /// Skips padding. False when no other member follows in the input so far; what is no member is
    /// left out, as gzip does.
    bool beginMember()
    {
        while (stream.avail_in > 0 && *stream.next_in == 0) {
            ++stream.next_in;
            --stream.avail_in;
        }
        if (stream.avail_in == 0) {
            return false;
        }
        if (*stream.next_in != static_cast<Bytef>(gzipMark.front())) {
            stream.avail_in = 0;
            return false;
        }
        betweenMembers = false;
        return inflateReset(&stream) == Z_OK;
    }

    z_stream stream{};
    bool valid = false;
    bool betweenMembers = false;
    bool bufferWasFull = false;
    std::array<char, bufferBytes> buffer{};
};

GuideUnpacker::GuideUnpacker(Receiver receiver)
    : receive(std::move(receiver))
{}

GuideUnpacker::~GuideUnpacker() = default;

GuideUnpacker::Result GuideUnpacker::add(QByteArrayView bytes)
{
    return give(0, bytes);
}

GuideUnpacker::Result GuideUnpacker::finish()
{
    return isPlain ? Result::Good : begin(layers.size());
}

/// Passes bytes to the layer at this depth, to the receiver behind the last one.
GuideUnpacker::Result GuideUnpacker::give(std::size_t depth, QByteArrayView bytes)
{
    if (bytes.isEmpty()) {
        return Result::Good;
    }
    if (depth < layers.size()) {
        return layers.at(depth)->unpack(
            bytes, [this, depth](QByteArrayView unpacked) { return give(depth + 1, unpacked); });
    }
    if (isPlain) {
        return receive(bytes) ? Result::Good : Result::Stopped;
    }
    head.append(bytes.data(), bytes.size());
    return head.size() < longestMark ? Result::Good : begin(depth);
}

/// Decides by its first bytes what the data at this depth is, and passes them on.
GuideUnpacker::Result GuideUnpacker::begin(std::size_t depth)
{
    const QByteArray first = std::exchange(head, {});
    if (first.startsWith(gzipMark)) {
        if (depth >= mostLayers) {
            return Result::UnknownPacking;
        }
        layers.push_back(std::make_unique<Layer>());
    } else {
        for (const QByteArrayView mark : otherMarks) {
            if (first.startsWith(mark)) {
                return Result::UnknownPacking;
            }
        }
        isPlain = true;
    }
    return give(depth, first);
}
