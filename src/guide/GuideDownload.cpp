#include "guide/GuideDownload.h"

#include "app/NetLog.h"
#include "model/OwnerOnlyFile.h"
#include "providers/HttpExchange.h"
#include "providers/NetworkTrace.h"
#include "providers/UserAgent.h"
#include "providers/WebUrl.h"

#include <QNetworkAccessManager>
#include <QNetworkRequest>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Bytes of one file. What is packed ten times over has as much as an update takes.
constexpr qint64 mostBytes = 1024LL * 1024 * 1024;

QNetworkRequest requestOf(const QString &address, const QString &userAgent,
                          GuideDownload::Packing packing)
{
    const QUrl url(address, QUrl::TolerantMode);
    // A request without an address fails like one to a server that is not there.
    QNetworkRequest request(isWebUrl(url) ? url : QUrl());
    setUserAgent(request, userAgent);
    if (packing == GuideDownload::Packing::Kept) {
        // Set by hand, it keeps the network layer from unpacking on this thread.
        request.setRawHeader("Accept-Encoding", "gzip");
    }
    return request;
}

} // namespace

GuideDownload::GuideDownload(QNetworkAccessManager *manager, const QString &url,
                             const QString &userAgent, Packing packing, const QString &path,
                             QObject *parent)
    : QObject(parent)
    , redaction({}, url)
    , file(path)
{
    if (netDebugEnabled()) {
        NetLogStream() << "[Guide] ->" << traceSafeUrl(url);
    }
    if (!openOwnerOnly(file, QIODevice::WriteOnly | QIODevice::Truncate)) {
        failure = GuideProblem::NotStored;
        reason = file.errorString();
    }
    HttpQuestion question;
    question.request = requestOf(url, userAgent, packing);
    question.maxBytes = mostBytes;
    question.redirects = HttpQuestion::Redirects::Anywhere;
    question.receive = [this](QByteArrayView bytes) { return store(bytes); };
    exchange = new HttpExchange(manager, std::move(question));
    connect(exchange, &HttpExchange::finished, this, &GuideDownload::finish);
}

GuideDownload::~GuideDownload()
{
    delete exchange;
}

bool GuideDownload::store(QByteArrayView bytes)
{
    if (failure == GuideProblem::None && file.write(bytes.data(), bytes.size()) != bytes.size()) {
        failure = GuideProblem::NotStored;
        reason = file.errorString();
    }
    Q_EMIT progressed(exchange->size(),
                      exchange->reply().header(QNetworkRequest::ContentLengthHeader).toLongLong());
    return failure == GuideProblem::None;
}

void GuideDownload::finish()
{
    const QNetworkReply &reply = exchange->reply();
    // One that announces too much is aborted before a byte of it has come.
    const qint64 announced = reply.header(QNetworkRequest::ContentLengthHeader).toLongLong();
    if (failure == GuideProblem::None && std::max(exchange->size(), announced) > mostBytes) {
        failure = GuideProblem::TooLarge;
    } else if (failure == GuideProblem::None && exchange->failed()) {
        failure = GuideProblem::NotReachable;
        reason = traceSafeError(*exchange);
    }
    if (failure == GuideProblem::None && !file.flush()) {
        failure = GuideProblem::NotStored;
        reason = file.errorString();
    }
    file.close();
    if (exchange->failed()) {
        traceFailure("[Guide]", *exchange);
    } else if (netDebugEnabled()) {
        NetLogStream() << "[Guide] <-" << exchange->size() << "bytes";
    }
    Q_EMIT finished();
}
