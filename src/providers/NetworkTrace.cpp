#include "providers/NetworkTrace.h"

#include "app/NetLog.h"
#include "app/TraceSecrets.h"
#include "providers/ReplyBytes.h"

#include <QNetworkReply>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

QString httpStatus(const QNetworkReply &reply)
{
    const QVariant status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    return status.isValid() ? status.toString() : u"invalid"_s;
}

} // namespace

QString traceSafeError(const QNetworkReply &reply)
{
    // The error text of an HTTP failure quotes the URL to which the last redirect led. That one may
    // repeat under an innocent name what the first one called a password.
    const RedactionScope asked({}, reply.request().url().toString(QUrl::FullyEncoded));
    const RedactionScope answered({}, reply.url().toString(QUrl::FullyEncoded));
    return traceSafe(reply.errorString());
}

void traceFailedReply(const char *tag, const QNetworkReply &reply)
{
    if (netDebugEnabled()) {
        NetLogStream() << tag << "<- error:" << traceSafeError(reply)
                       << "http status:" << httpStatus(reply);
    }
}

void traceReply(const char *tag, const QNetworkReply &reply, const ReplyBytes &body)
{
    if (netDebugEnabled()) {
        NetLogStream() << tag << "<-" << httpStatus(reply)
                       << traceSafeHead(body.head(), traceBodyBytes);
    }
}
