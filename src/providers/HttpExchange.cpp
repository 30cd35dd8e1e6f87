#include "providers/HttpExchange.h"

#include "providers/ReplyBody.h"
#include "providers/WebUrl.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int firstRefusal = 300; ///< of the HTTP statuses

int statusOf(const QNetworkReply &reply)
{
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

bool isRedirect(int status)
{
    constexpr std::array redirects{301, 302, 303, 307, 308};
    return std::ranges::find(redirects, status) != redirects.end();
}

/// Whether the request that follows is sent with the same method and body (RFC 9110, 15.4). Behind
/// the other redirects clients have always sent a GET.
bool keepsMethod(int status)
{
    return status == 307 || status == 308;
}

/// The address to which a reply redirects, read as Qt reads it; invalid when it names none.
QUrl targetOf(const QNetworkReply &reply)
{
    const QUrl target = QUrl::fromEncoded(reply.rawHeader("Location"));
    return target.isValid() && target.isRelative() ? reply.url().resolved(target) : target;
}

QNetworkReply::NetworkError refusalOf(const QUrl &from, const QUrl &target, qsizetype asked,
                                      HttpQuestion::Redirects redirects)
{
    if (!target.isValid() || !isWebUrl(target)) {
        return QNetworkReply::ProtocolUnknownError;
    }
    if (asked > HttpExchange::maxRedirects) {
        return QNetworkReply::TooManyRedirectsError;
    }
    const bool isLessSafe = from.scheme() == "https"_L1 && target.scheme() != "https"_L1;
    return isLessSafe && redirects == HttpQuestion::Redirects::NotToLessSafe
               ? QNetworkReply::InsecureRedirectError
               : QNetworkReply::NoError;
}

/// Qt's own words, in Qt's own translation.
QString refusalText(QNetworkReply::NetworkError refusal)
{
    const char *text = "Unknown protocol specified";
    if (refusal == QNetworkReply::TooManyRedirectsError) {
        text = "Too many redirects";
    } else if (refusal == QNetworkReply::InsecureRedirectError) {
        text = "Insecure redirect";
    }
    return QCoreApplication::translate("QHttp", text);
}

} // namespace

HttpExchange::HttpExchange(QNetworkAccessManager *manager, HttpQuestion httpQuestion)
    : QObject(manager)
    , network(manager)
    , question(std::move(httpQuestion))
{
    question.request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                                  QNetworkRequest::ManualRedirectPolicy);
    send(question.request);
}

void HttpExchange::abort()
{
    lastReply->abort();
}

qint64 HttpExchange::size() const
{
    return body->size();
}

QNetworkReply::NetworkError HttpExchange::error() const
{
    return refusal != QNetworkReply::NoError ? refusal : lastReply->error();
}

QString HttpExchange::errorString() const
{
    return refusal != QNetworkReply::NoError ? refusalText(refusal) : lastReply->errorString();
}

ReplyBytes HttpExchange::take()
{
    return failed() ? ReplyBytes() : body->take();
}

void HttpExchange::send(const QNetworkRequest &request)
{
    asked.append(request.url());
    lastReply = question.posted ? network->post(request, *question.posted) : network->get(request);
    lastReply->setParent(this);
    connect(lastReply, &QNetworkReply::socketStartedConnecting, this, &HttpExchange::begun);
    connect(lastReply, &QNetworkReply::requestSent, this, &HttpExchange::begun);
    body = new ReplyBody(lastReply, question.maxBytes);
    if (question.receive) {
        body->setReceiver([this](QByteArrayView bytes) {
            return statusOf(*lastReply) >= firstRefusal || question.receive(bytes);
        });
    }
    connect(body, &ReplyBody::finished, this, &HttpExchange::endHop);
}

bool HttpExchange::isRedirected() const
{
    return isRedirect(statusOf(*lastReply));
}

void HttpExchange::endHop()
{
    if (lastReply->error() == QNetworkReply::NoError && isRedirected()) {
        const QUrl target = targetOf(*lastReply);
        refusal = refusalOf(lastReply->url(), target, asked.size(), question.redirects);
        if (refusal == QNetworkReply::NoError) {
            follow(target);
            return;
        }
    }
    Q_EMIT finished();
}

void HttpExchange::follow(const QUrl &target)
{
    if (!keepsMethod(statusOf(*lastReply))) {
        question.posted.reset();
    }
    disconnect(lastReply, nullptr, this, nullptr);
    lastReply->deleteLater();
    QNetworkRequest request = question.request;
    request.setUrl(target);
    send(request);
}
