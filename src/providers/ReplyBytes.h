#pragma once

#include <QByteArray>
#include <QList>

/// The body of a reply in the pieces in which it arrived. Putting together a large body takes too
/// long for the GUI thread; who parses it does that. Copies share the bytes.
class ReplyBytes final
{
public:
    ReplyBytes() = default;
    explicit ReplyBytes(const QByteArray &bytes);

    void append(QByteArrayView bytes);
    qsizetype size() const { return total; }
    bool isEmpty() const { return total == 0; }
    /// The whole body when it is shorter than pieceBytes, otherwise as many of its first bytes or
    /// more.
    QByteArray head() const { return pieces.value(0); }
    /// The whole body. This object is empty afterwards.
    QByteArray join();

    static constexpr qsizetype pieceBytes = 1024LL * 1024;

private:
    QList<QByteArray> pieces; ///< only the last one may be shorter than pieceBytes
    qsizetype total = 0;
};
