#include "providers/PlaylistClient.h"

#include "app/NetLog.h"
#include "app/TraceSecrets.h"
#include "providers/HttpExchange.h"
#include "providers/NetworkTrace.h"
#include "providers/ReplyBody.h"
#include "providers/UserAgent.h"

#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QUrl>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

bool isDownloadable(const QString &address)
{
    return address.startsWith("http://"_L1) || address.startsWith("https://"_L1);
}

/// Takes the body of a finished exchange, and traces it.
PlaylistReply takeReply(HttpExchange &exchange)
{
    if (exchange.failed()) {
        if (netDebugEnabled()) {
            NetLogStream() << "[M3U] <- error:" << traceSafeError(exchange);
        }
        return {PlaylistReply::Outcome::DownloadFailed, {}, exchange.errorString()};
    }
    const ReplyBytes body = exchange.take();
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
    HttpQuestion question;
    question.request.setUrl(QUrl(url));
    setUserAgent(question.request, userAgent);
    question.maxBytes = ReplyBody::maxCatalogBytes;
    auto *exchange = new HttpExchange(network, std::move(question));
    connect(exchange, &HttpExchange::finished, this, [exchange, callback] {
        exchange->deleteLater();
        callback(takeReply(*exchange));
    });
}
