#include "providers/ZevrinoClient.h"

#include "app/NetLog.h"
#include "app/TraceSecrets.h"
#include "providers/BackgroundJobs.h"
#include "providers/HttpExchange.h"
#include "providers/NetworkTrace.h"
#include "providers/ReplyBody.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QUrl>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

ZevrinoClient::Outcome refusal(const QString &message)
{
    return {false, {}, message};
}

} // namespace

ZevrinoClient::ZevrinoClient(const QString &baseUrl, QObject *parent)
    : QObject(parent)
    , network(new QNetworkAccessManager(this))
    , parsing(new BackgroundJobs(this))
    , endpoint(baseUrl + "/api/v1/subscription/credentials"_L1)
{
    network->setTransferTimeout(replyTimeoutMs);
}

ZevrinoClient::Outcome ZevrinoClient::readReply(const QByteArray &body)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(body, &error);
    if (error.error != QJsonParseError::NoError || !document.isObject()) {
        return refusal(tr("Invalid response from server"));
    }
    const QJsonObject root = document.object();
    if (root.value("status"_L1).toString() != "success"_L1) {
        const QString message = root.value("message"_L1).toString();
        return refusal(message.isEmpty() ? tr("Subscription could not be resolved") : message);
    }
    const QJsonObject data = root.value("data"_L1).toObject();
    const Credentials credentials{
        data.value("server_url"_L1).toString(), data.value("username"_L1).toString(),
        data.value("password"_L1).toString(), data.value("expires_at"_L1).toString(),
        data.value("stream_type"_L1).toString()};
    if (credentials.serverUrl.isEmpty() || credentials.username.isEmpty() ||
        credentials.password.isEmpty()) {
        return refusal(tr("Server response was missing credentials"));
    }
    return {true, credentials, {}};
}

void ZevrinoClient::resolve(const QString &subscriptionKey, Callback callback)
{
    const RedactionScope redaction(subscriptionKey);
    QNetworkRequest request(QUrl(endpoint, QUrl::TolerantMode));
    request.setHeader(QNetworkRequest::ContentTypeHeader, u"application/json"_s);
    const QByteArray body = QJsonDocument(QJsonObject{{u"subscription_key"_s, subscriptionKey}})
                                .toJson(QJsonDocument::Compact);
    if (netDebugEnabled()) {
        NetLogStream() << "[Zevrino] ->" << endpoint << traceSafe(QString::fromUtf8(body));
    }
    HttpQuestion question;
    question.request = request;
    question.maxBytes = ReplyBody::maxAnswerBytes;
    question.posted = body;
    auto *exchange = new HttpExchange(network, std::move(question));
    // The captured scope redacts the key until the exchange is deleted.
    connect(exchange, &HttpExchange::finished, this,
            [this, exchange, redaction, callback = std::move(callback)] {
                if (exchange->failed()) {
                    traceFailure("[Zevrino]", *exchange);
                    exchange->deleteLater();
                    callback(false, {},
                             tr("Could not reach server: %1").arg(exchange->errorString()));
                    return;
                }
                ReplyBytes bytes = exchange->take();
                const auto take = [exchange, bytes, callback](const Outcome &outcome) {
                    // The reply may repeat the account's password outside the member of that name.
                    const RedactionScope account(outcome.credentials.password,
                                                 outcome.credentials.serverUrl);
                    traceAnswer("[Zevrino]", *exchange, bytes);
                    exchange->deleteLater();
                    callback(outcome.ok, outcome.credentials, outcome.message);
                };
                parsing->run(
                    bytes.size(), [bytes]() mutable { return readReply(bytes.join()); }, take);
            });
}
