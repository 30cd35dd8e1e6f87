#pragma once

#include <QByteArray>
#include <QHash>

/// A transport stream that is made of one clip, over and over, with a clock and packet counters
/// that run on from round to round. Copies share the clip.
class TransportClip final
{
public:
    static constexpr qsizetype packetBytes = 188;

    /// The clip's whole packets count; its own clock tells how long it plays. It has a constant
    /// rate.
    explicit TransportClip(const QByteArray &clip);

    /// How many bytes play for so many seconds; a multiple of packetBytes. 0 when the clip has no
    /// clock.
    qint64 bytesFor(qint64 seconds) const;
    /// Some bytes of the stream from that offset on, which is any; never none, unless the clip is
    /// empty.
    QByteArray bytesAt(qint64 offset) const;

private:
    void shift(char *packet, qint64 round) const;

    QByteArray packets;
    qint64 ticks = 0; ///< of a round, 90,000 a second
    /// How many packets with a payload the clip has of each stream.
    QHash<int, qint64> packetsOfStream;
};
