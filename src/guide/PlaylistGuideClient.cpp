#include "guide/PlaylistGuideClient.h"

#include "app/NetLog.h"
#include "app/TraceSecrets.h"
#include "providers/NetworkTrace.h"
#include "providers/ReplyBody.h"
#include "providers/UserAgent.h"

#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView byteOrderMark("\xef\xbb\xbf");
constexpr QByteArrayView headerName("#EXTM3U");
constexpr int firstRefusal = 300; ///< of the HTTP statuses

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

bool isRefused(const QNetworkReply &reply)
{
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() >= firstRefusal;
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
    QNetworkRequest request{QUrl(url)};
    setUserAgent(request, userAgent);
    QNetworkReply *reply = network->get(request);
    reply->setReadBufferSize(longestLine);
    // Not that of the manager alone: Qt 6.4 forgets it behind a redirect.
    QTimer::singleShot(network->transferTimeout(), reply, &QNetworkReply::abort);
    const auto head = std::make_shared<QByteArray>();
    connect(reply, &QNetworkReply::readyRead, this, [this, reply, head, callback] {
        head->append(reply->read(longestLine - head->size()));
        if (!isRefused(*reply) && hasFirstLine(*head)) {
            report(reply, *head, callback);
        }
    });
    connect(reply, &QNetworkReply::finished, this, [this, reply, head, callback] {
        head->append(reply->read(longestLine - head->size()));
        report(reply, *head, callback);
    });
}

/// Ends the download, wherever it is.
void PlaylistGuideClient::report(QNetworkReply *reply, const QByteArray &head,
                                 const Callback &callback)
{
    const Callback receiver = callback; // it goes with the connections
    const bool failed = reply->error() != QNetworkReply::NoError;
    const PlaylistGuide guide = failed ? PlaylistGuide() : guideOf(head);
    if (netDebugEnabled()) {
        NetLogStream log;
        if (failed) {
            log << "[M3U] <- error:" << traceSafeError(*reply);
        } else {
            log << "[M3U] <- addresses of guides:" << guide.addresses.size();
        }
    }
    disconnect(reply, nullptr, this, nullptr);
    reply->abort();
    reply->deleteLater();
    receiver(failed ? std::optional<PlaylistGuide>() : guide);
}
