#include "providers/NetworkTrace.h"

#include "app/NetLog.h"
#include "app/TraceSecrets.h"

#include <QByteArray>
#include <QNetworkReply>

using namespace Qt::StringLiterals;

namespace {

QString httpStatus(const QNetworkReply &reply)
{
    const QVariant status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    return status.isValid() ? status.toString() : u"invalid"_s;
}

} // namespace

void traceFailedReply(const char *tag, const QNetworkReply &reply)
{
    if (netDebugEnabled()) {
        // The error text of an HTTP failure quotes the request's URL.
        NetLogStream() << tag << "<- error:" << traceSafe(reply.errorString())
                       << "http status:" << httpStatus(reply);
    }
}

void traceReply(const char *tag, const QNetworkReply &reply, const QByteArray &body)
{
    if (netDebugEnabled()) {
        NetLogStream() << tag << "<-" << httpStatus(reply) << traceSafeHead(body, traceBodyBytes);
    }
}
