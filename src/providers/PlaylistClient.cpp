#include "providers/PlaylistClient.h"

#include "app/NetLog.h"
#include "app/TraceSecrets.h"
#include "providers/NetworkTrace.h"
#include "providers/ReplyBody.h"
#include "providers/UserAgent.h"

#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

bool isDownloadable(const QString &address)
{
    return address.startsWith("http://"_L1) || address.startsWith("https://"_L1);
}

/// Takes the body of a finished reply, and traces it.
PlaylistReply takeReply(const QNetworkReply &reply, ReplyBody &replyBody)
{
    const ReplyBytes body = replyBody.take();
    if (reply.error() != QNetworkReply::NoError) {
        if (netDebugEnabled()) {
            NetLogStream() << "[M3U] <- error:" << traceSafeError(reply);
        }
        return {PlaylistReply::Outcome::DownloadFailed, {}, reply.errorString()};
    }
    if (netDebugEnabled()) {
        NetLogStream() << "[M3U] <-" << body.size() << "bytes";
    }
    return {PlaylistReply::Outcome::Read, body, {}};
}

} // namespace

PlaylistClient::PlaylistClient(QObject *parent)
    : QObject(parent)
    , network(new QNetworkAccessManager(this))
{
    network->setTransferTimeout(replyTimeoutMs);
}

void PlaylistClient::read(const QString &address, const QString &userAgent,
                          const Callback &callback)
{
    if (isDownloadable(address)) {
        download(address, userAgent, callback);
    } else {
        callback(readFile(address));
    }
}

PlaylistReply PlaylistClient::readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return {PlaylistReply::Outcome::FileNotOpened, {}, {}};
    }
    return {PlaylistReply::Outcome::Read, ReplyBytes(file.readAll()), {}};
}

void PlaylistClient::download(const QString &url, const QString &userAgent,
                              const Callback &callback)
{
    if (netDebugEnabled()) {
        NetLogStream() << "[M3U] ->" << traceSafeUrl(url);
    }
    QNetworkRequest request{QUrl(url)};
    setUserAgent(request, userAgent);
    QNetworkReply *reply = network->get(request);
    auto *body = new ReplyBody(reply, ReplyBody::maxCatalogBytes);
    connect(body, &ReplyBody::finished, this, [reply, body, callback] {
        reply->deleteLater();
        callback(takeReply(*reply, *body));
    });
}
