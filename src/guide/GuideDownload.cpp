#include "guide/GuideDownload.h"

#include "app/NetLog.h"
#include "model/OwnerOnlyFile.h"
#include "providers/NetworkTrace.h"
#include "providers/RedirectFollower.h"
#include "providers/ReplyBody.h"
#include "providers/UserAgent.h"
#include "providers/WebUrl.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

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
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::UserVerifiedRedirectPolicy);
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
    reply = manager->get(requestOf(url, userAgent, packing));
    reply->setParent(this);
    new RedirectFollower(reply);
    body = new ReplyBody(reply, mostBytes);
    if (!openOwnerOnly(file, QIODevice::WriteOnly | QIODevice::Truncate)) {
        failure = GuideProblem::NotStored;
        reason = file.errorString();
    }
    body->setReceiver([this](QByteArrayView bytes) {
        if (failure == GuideProblem::None &&
            file.write(bytes.data(), bytes.size()) != bytes.size()) {
            failure = GuideProblem::NotStored;
            reason = file.errorString();
        }
        Q_EMIT progressed(body->size(),
                          reply->header(QNetworkRequest::ContentLengthHeader).toLongLong());
        return failure == GuideProblem::None;
    });
    connect(body, &ReplyBody::finished, this, &GuideDownload::finish);
}

GuideDownload::~GuideDownload()
{
    disconnect(body, nullptr, this, nullptr);
    reply->abort();
}

void GuideDownload::finish()
{
    if (failure == GuideProblem::None && body->size() > mostBytes) {
        failure = GuideProblem::TooLarge;
    } else if (failure == GuideProblem::None && reply->error() != QNetworkReply::NoError) {
        failure = GuideProblem::NotReachable;
        reason = traceSafeError(*reply);
    }
    if (failure == GuideProblem::None && !file.flush()) {
        failure = GuideProblem::NotStored;
        reason = file.errorString();
    }
    file.close();
    if (reply->error() != QNetworkReply::NoError) {
        traceFailedReply("[Guide]", *reply);
    } else if (netDebugEnabled()) {
        NetLogStream() << "[Guide] <-" << body->size() << "bytes";
    }
    Q_EMIT finished();
}
