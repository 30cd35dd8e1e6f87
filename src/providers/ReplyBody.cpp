#include "providers/ReplyBody.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>

#include <array>
#include <utility>

namespace {

/// What may wait to be read: enough for a fast connection on a busy machine. Packed bytes wait in
/// smaller number, since Qt unpacks all that wait at once.
constexpr qint64 waitingBytes = 4LL * 1024 * 1024;
constexpr qint64 waitingPackedBytes = 256LL * 1024;
/// What is read at a time, as unpacked.
constexpr qint64 sliceBytes = 1024LL * 1024;

} // namespace

ReplyBody::ReplyBody(QNetworkReply *networkReply, qint64 mostBytes)
    : QObject(networkReply)
    , reply(networkReply)
    , maxBytes(mostBytes)
{
    reply->setReadBufferSize(waitingPackedBytes);
    nextSlice.setSingleShot(true);
    connect(&nextSlice, &QTimer::timeout, this, &ReplyBody::readSlice);
    // Until the head arrives, the manager's own timeout runs.
    timer.setSingleShot(true);
    timer.setInterval(reply->manager()->transferTimeout());
    connect(&timer, &QTimer::timeout, reply, &QNetworkReply::abort);
    connect(reply, &QNetworkReply::metaDataChanged, this, &ReplyBody::checkHead);
    connect(reply, &QNetworkReply::readyRead, this, &ReplyBody::read);
    connect(reply, &QNetworkReply::finished, this, &ReplyBody::readRest);
}

ReplyBytes ReplyBody::take()
{
    return std::exchange(body, {});
}

void ReplyBody::restartTimer()
{
    if (timer.interval() > 0) {
        timer.start();
    }
}

void ReplyBody::checkHead()
{
    restartTimer();
    if (reply->header(QNetworkRequest::ContentLengthHeader).toLongLong() > maxBytes) {
        reply->abort();
    } else if (!reply->hasRawHeader("Content-Encoding")) {
        reply->setReadBufferSize(waitingBytes);
    }
}

void ReplyBody::read()
{
    if (!nextSlice.isActive()) {
        readSlice();
    }
}

void ReplyBody::readRest()
{
    timer.stop();
    if (reply->error() != QNetworkReply::NoError) {
        nextSlice.stop();
        Q_EMIT finished();
    } else {
        read();
    }
}

void ReplyBody::readSlice()
{
    std::array<char, 64UL * 1024> buffer; // NOLINT: filled below
    qint64 count = 1;
    bool isKept = true;
    for (qint64 slice = 0; count > 0 && isKept && slice < sliceBytes; slice += count) {
        count = reply->read(buffer.data(), std::ssize(buffer));
        isKept = count <= 0 || keep({buffer.data(), count});
    }
    const bool cannotBeUnpacked = reply->error() != QNetworkReply::NoError;
    if (reply->isRunning() && (cannotBeUnpacked || !isKept || arrived > maxBytes)) {
        reply->abort(); // which finishes it
        return;
    }
    if (!cannotBeUnpacked && count > 0) {
        nextSlice.start();
    } else if (reply->isFinished()) {
        Q_EMIT finished();
        return;
    }
    if (arrived - bytesInTime >= minProgressBytes) {
        bytesInTime = arrived;
        restartTimer();
    }
}

bool ReplyBody::keep(QByteArrayView bytes)
{
    arrived += bytes.size();
    if (receive) {
        return receive(bytes);
    }
    body.append(bytes);
    return true;
}
