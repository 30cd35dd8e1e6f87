#include "fakeprovider/TransportClip.h"

#include <algorithm>

namespace {

constexpr qint64 ticksPerSecond = 90'000;
constexpr qint64 clockBits = 33;
constexpr qsizetype headBytes = 4;

quint8 byteAt(const char *bytes, qsizetype index)
{
    return static_cast<quint8>(bytes[index]);
}

int streamOf(const char *packet)
{
    return ((byteAt(packet, 1) & 0x1f) << 8) | byteAt(packet, 2);
}

bool hasAdaptation(const char *packet)
{
    return (byteAt(packet, 3) & 0x20U) != 0;
}

bool hasPayload(const char *packet)
{
    return (byteAt(packet, 3) & 0x10U) != 0;
}

qint64 wrapped(qint64 ticks)
{
    return ticks & ((1LL << clockBits) - 1);
}

/// The programme clock reference of a packet, where it has one, stands behind the flags of its
/// adaptation field: 33 bits, then others.
constexpr qsizetype referencePlace = 6;

bool hasReference(const char *packet)
{
    return hasAdaptation(packet) && byteAt(packet, 4) > 0 && (byteAt(packet, 5) & 0x10U) != 0;
}

qint64 referenceOf(const char *packet)
{
    qint64 high = 0;
    for (qsizetype index = 0; index < 4; ++index) {
        high = (high << 8) | byteAt(packet, referencePlace + index);
    }
    return (high << 1) | (byteAt(packet, referencePlace + 4) >> 7U);
}

void shiftReference(char *packet, qint64 ticks)
{
    if (!hasReference(packet)) {
        return;
    }
    const qint64 shifted = wrapped(referenceOf(packet) + ticks);
    for (qsizetype index = 0; index < 4; ++index) {
        packet[referencePlace + index] = static_cast<char>((shifted >> (25 - 8 * index)) & 0xff);
    }
    char &last = packet[referencePlace + 4];
    last = static_cast<char>(((shifted & 1) << 7) | (last & 0x7f));
}

/// A time stamp takes five bytes: 3, 15 and 15 bits, each with a marker behind it.
void shiftStamp(char *bytes, qint64 ticks)
{
    const qint64 high = (byteAt(bytes, 0) >> 1U) & 0x07U;
    const qint64 middle = (byteAt(bytes, 1) << 7) | (byteAt(bytes, 2) >> 1U);
    const qint64 low = (byteAt(bytes, 3) << 7) | (byteAt(bytes, 4) >> 1U);
    const qint64 stamp = wrapped(((high << 30) | (middle << 15) | low) + ticks);
    bytes[0] = static_cast<char>((byteAt(bytes, 0) & 0xf1) | ((stamp >> 29) & 0x0e));
    bytes[1] = static_cast<char>((stamp >> 22) & 0xff);
    bytes[2] = static_cast<char>(((stamp >> 14) & 0xfe) | 1);
    bytes[3] = static_cast<char>((stamp >> 7) & 0xff);
    bytes[4] = static_cast<char>(((stamp << 1) & 0xfe) | 1);
}

/// The time stamps at the beginning of a picture or of sound.
void shiftStamps(char *packet, qint64 ticks)
{
    constexpr qsizetype flags = 7;
    constexpr qsizetype first = 9;
    constexpr qsizetype stampBytes = 5;
    const bool begins = (byteAt(packet, 1) & 0x40U) != 0;
    const qsizetype start = headBytes + (hasAdaptation(packet) ? 1 + byteAt(packet, headBytes) : 0);
    if (!begins || !hasPayload(packet) ||
        start + first + 2 * stampBytes > TransportClip::packetBytes) {
        return;
    }
    char *payload = packet + start;
    const quint8 kind = byteAt(payload, 3);
    const bool isMedia = byteAt(payload, 0) == 0 && byteAt(payload, 1) == 0 &&
                         byteAt(payload, 2) == 1 && kind >= 0xc0 && kind < 0xf0;
    if (!isMedia) {
        return;
    }
    if ((byteAt(payload, flags) & 0x80U) != 0) {
        shiftStamp(payload + first, ticks);
    }
    if ((byteAt(payload, flags) & 0x40U) != 0) {
        shiftStamp(payload + first + stampBytes, ticks);
    }
}

} // namespace

TransportClip::TransportClip(const QByteArray &clip)
    : packets(clip.first(clip.size() - clip.size() % packetBytes))
{
    qsizetype first = -1;
    qsizetype last = -1;
    for (qsizetype packet = 0; packet < packets.size(); packet += packetBytes) {
        const char *bytes = packets.constData() + packet;
        if (hasPayload(bytes)) {
            ++packetsOfStream[streamOf(bytes)];
        }
        if (hasReference(bytes)) {
            first = first < 0 ? packet : first;
            last = packet;
        }
    }
    if (last > first) {
        const qint64 between = wrapped(referenceOf(packets.constData() + last) -
                                       referenceOf(packets.constData() + first));
        ticks = between * packets.size() / (last - first);
    }
}

qint64 TransportClip::bytesFor(qint64 seconds) const
{
    return ticks == 0
               ? 0
               : packets.size() * seconds * ticksPerSecond / ticks / packetBytes * packetBytes;
}

QByteArray TransportClip::bytesAt(qint64 offset) const
{
    constexpr qint64 most = 64 * packetBytes;
    if (packets.isEmpty()) {
        return {};
    }
    const qint64 begin = offset - offset % packetBytes;
    const qint64 round = begin / packets.size();
    const qint64 position = begin % packets.size();
    QByteArray piece = packets.sliced(position, std::min<qint64>(most, packets.size() - position));
    piece.detach();
    for (qsizetype packet = 0; packet < piece.size(); packet += packetBytes) {
        shift(piece.data() + packet, round);
    }
    return piece.sliced(offset - begin);
}

void TransportClip::shift(char *packet, qint64 round) const
{
    shiftReference(packet, round * ticks);
    shiftStamps(packet, round * ticks);
    const qint64 before = round * packetsOfStream.value(streamOf(packet));
    const qint64 counter = (byteAt(packet, 3) & 0x0f) + before;
    packet[3] = static_cast<char>((byteAt(packet, 3) & 0xf0) | (counter & 0x0f));
}
