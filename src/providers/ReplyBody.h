#pragma once

#include "providers/ReplyBytes.h"

#include <QObject>
#include <QTimer>

#include <functional>

class QNetworkReply;

/// How long a reply may go without any progress, in ms. Set on the network access managers; each
/// byte that arrives starts the time again.
inline constexpr int replyTimeoutMs = 60000;
inline constexpr int posterTimeoutMs = 30000;

/// Reads the body of one reply as it arrives, a little at a time so that the GUI thread stays free,
/// and aborts a reply that is too large or too slow, which is a network failure like any other. A
/// child of the reply; make it right after the request was sent. Nobody else reads from the reply.
class ReplyBody final : public QObject
{
    Q_OBJECT

public:
    /// The longest body of a playlist or a catalog, in bytes as unpacked. A playlist of 600,000
    /// channels has 170 MB.
    static constexpr qint64 maxCatalogBytes = 512LL * 1024 * 1024;
    /// The same of a reply about one account, one show or one subscription.
    static constexpr qint64 maxAnswerBytes = 32LL * 1024 * 1024;
    /// A body that has begun must bring so many bytes, or its end, within the manager's transfer
    /// timeout: a server that sends a byte now and then would hold up a load for ever.
    static constexpr qint64 minProgressBytes = 1024;

    ReplyBody(QNetworkReply *networkReply, qint64 maxBytes);

    /// Hands the body to `take` as it arrives, instead of keeping it; false aborts the reply.
    void setReceiver(const std::function<bool(QByteArrayView)> &take) { receive = take; }

    /// The body of the reply after finished(); of one that failed, what had arrived.
    ReplyBytes take();
    /// How many bytes of the body have arrived, as unpacked.
    qint64 size() const { return arrived; }

Q_SIGNALS:
    /// The reply has failed, or it has finished and its body was read. Comes once.
    void finished();

private:
    void checkHead();
    void read();
    void readSlice();
    void readRest();
    bool keep(QByteArrayView bytes);
    void restartTimer();

    QNetworkReply *reply;
    const qint64 maxBytes;
    ReplyBytes body;
    std::function<bool(QByteArrayView)> receive;
    qint64 arrived = 0;
    qint64 bytesInTime = 0; ///< what had arrived when the timer was started
    QTimer timer;
    QTimer nextSlice; ///< runs while more may be there to be read
};
