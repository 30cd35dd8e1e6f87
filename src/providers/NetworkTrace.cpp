#include "providers/NetworkTrace.h"

#include "app/NetLog.h"
#include "app/TraceSecrets.h"
#include "providers/HttpExchange.h"
#include "providers/ReplyBytes.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace {

QString httpStatus(const HttpExchange &exchange)
{
    const QVariant status = exchange.reply().attribute(QNetworkRequest::HttpStatusCodeAttribute);
    return status.isValid() ? status.toString() : u"invalid"_s;
}

} // namespace

QString traceSafeError(const HttpExchange &exchange)
{
    // The error text of an HTTP failure quotes the URL to which the last redirect led. That one may
    // repeat under an innocent name what an earlier one called a password.
    std::vector<RedactionScope> redactions;
    for (const QUrl &address : exchange.addresses()) {
        redactions.emplace_back(QString(), address.toString(QUrl::FullyEncoded));
    }
    return traceSafe(exchange.errorString());
}

void traceFailure(const char *tag, const HttpExchange &exchange)
{
    if (netDebugEnabled()) {
        NetLogStream() << tag << "<- error:" << traceSafeError(exchange)
                       << "http status:" << httpStatus(exchange);
    }
}

void traceAnswer(const char *tag, const HttpExchange &exchange, const ReplyBytes &body)
{
    if (netDebugEnabled()) {
        NetLogStream() << tag << "<-" << httpStatus(exchange)
                       << traceSafeHead(body.head(), traceBodyBytes);
    }
}
