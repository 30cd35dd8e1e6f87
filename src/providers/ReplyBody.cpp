#include "providers/ReplyBody.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>

#include <utility>

ReplyBody::ReplyBody(QNetworkReply *networkReply, qint64 mostBytes)
    : QObject(networkReply)
    , reply(networkReply)
    , maxBytes(mostBytes)
{
    // Until the first head arrives, the manager's own timeout runs.
    timer.setSingleShot(true);
    timer.setInterval(reply->manager()->transferTimeout());
    connect(&timer, &QTimer::timeout, reply, &QNetworkReply::abort);
    connect(reply, &QNetworkReply::redirected, this, &ReplyBody::restartTimer);
    connect(reply, &QNetworkReply::metaDataChanged, this, &ReplyBody::checkHead);
    connect(reply, &QNetworkReply::readyRead, this, &ReplyBody::read);
    connect(reply, &QNetworkReply::finished, &timer, &QTimer::stop);
}

QByteArray ReplyBody::take()
{
    if (reply->error() == QNetworkReply::NoError) {
        body += reply->readAll();
    }
    // The rest may be what cannot be unpacked.
    return reply->error() == QNetworkReply::NoError ? std::exchange(body, {}) : QByteArray();
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
    }
}

void ReplyBody::read()
{
    body += reply->readAll();
    const bool cannotBeUnpacked = reply->error() != QNetworkReply::NoError;
    if (cannotBeUnpacked || body.size() > maxBytes) {
        body.clear();
        reply->abort();
    } else if (body.size() - bytesInTime >= minProgressBytes) {
        bytesInTime = body.size();
        restartTimer();
    }
}
