#include "guide/PlaylistGuideClient.h"

#include "app/NetLog.h"
#include "app/TraceSecrets.h"
#include "providers/HttpExchange.h"
#include "providers/NetworkTrace.h"
#include "providers/ReplyBody.h"
#include "providers/UserAgent.h"

#include <QFile>
#include <QNetworkAccessManager>
#include <QTimer>
#include <QUrl>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView byteOrderMark("\xef\xbb\xbf");
constexpr QByteArrayView headerName("#EXTM3U");

/// The first line that is not empty, as far as it is there.
QByteArrayView firstLine(QByteArrayView head)
{
    if (head.startsWith(byteOrderMark)) {
        head = head.sliced(byteOrderMark.size());
    }
    head = head.trimmed();
    for (qsizetype end = 0; end < head.size(); ++end) {
        if (head.at(end) == '\n' || head.at(end) == '\r') {
            return head.first(end);
        }
    }
    return head;
}

bool hasFirstLine(const QByteArray &head)
{
    const QByteArrayView line = firstLine(head);
    return head.size() >= PlaylistGuideClient::longestLine ||
           (!line.isEmpty() && head.indexOf('\n', line.data() - head.data()) >= 0);
}

PlaylistGuide guideOf(const QByteArray &head)
{
    const QByteArrayView line = firstLine(head);
    const bool isHeader =
        line.first(qMin(line.size(), headerName.size())).compare(headerName, Qt::CaseInsensitive) ==
        0;
    return isHeader ? playlistGuideOfLine(line) : PlaylistGuide();
}

bool isDownloadable(const QString &address)
{
    return address.startsWith("http://"_L1) || address.startsWith("https://"_L1);
}

/// What a download has told, which ends when its first line is there.
std::optional<PlaylistGuide> guideOf(const HttpExchange &exchange, const QByteArray &head)
{
    if (exchange.failed() && !hasFirstLine(head)) {
        if (netDebugEnabled()) {
            NetLogStream() << "[M3U] <- error:" << traceSafeError(exchange);
        }
        return std::nullopt;
    }
    const PlaylistGuide guide = guideOf(head);
    if (netDebugEnabled()) {
        NetLogStream() << "[M3U] <- addresses of guides:" << guide.addresses.size();
    }
    return guide;
}

} // namespace

PlaylistGuideClient::PlaylistGuideClient(QObject *parent)
    : QObject(parent)
    , network(new QNetworkAccessManager(this))
{
    network->setTransferTimeout(replyTimeoutMs);
}

void PlaylistGuideClient::fetch(const QString &address, const QString &userAgent,
                                const Callback &callback)
{
    if (isDownloadable(address)) {
        download(address, userAgent, callback);
    } else {
        callback(readFile(address));
    }
}

std::optional<PlaylistGuide> PlaylistGuideClient::readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return guideOf(file.read(longestLine));
}

void PlaylistGuideClient::download(const QString &url, const QString &userAgent,
                                   const Callback &callback)
{
    if (netDebugEnabled()) {
        NetLogStream() << "[M3U] ->" << traceSafeUrl(url);
    }
    const auto head = std::make_shared<QByteArray>();
    HttpQuestion question;
    question.request.setUrl(QUrl(url));
    setUserAgent(question.request, userAgent);
    question.maxBytes = ReplyBody::maxCatalogBytes;
    question.receive = [head](QByteArrayView bytes) {
        head->append(bytes.first(qMin(bytes.size(), longestLine - head->size())));
        return !hasFirstLine(*head);
    };
    auto *exchange = new HttpExchange(network, std::move(question));
    // The network's own timeouts let a line go on for ever that arrives slowly.
    QTimer::singleShot(network->transferTimeout(), exchange, &HttpExchange::abort);
    connect(exchange, &HttpExchange::finished, this, [exchange, head, callback] {
        exchange->deleteLater();
        callback(guideOf(*exchange, *head));
    });
}
