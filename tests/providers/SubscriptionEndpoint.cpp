#include "providers/SubscriptionEndpoint.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

SubscriptionEndpoint::SubscriptionEndpoint(Transport transport)
{
    if (transport == Transport::Plain) {
        server = std::make_unique<HttpServer>();
    } else {
        certificate.emplace(directory.path());
        server = std::make_unique<HttpServer>(
            HttpServer::Tls{certificate->certificateFile(), certificate->keyFile()});
    }
    server->on(path(), [this](const HttpRequest &request) { return reply(request); });
}

QString SubscriptionEndpoint::path()
{
    return u"/api/v1/subscription/credentials"_s;
}

void SubscriptionEndpoint::accept(const QString &key, const XtreamProvider &provider,
                                  const QString &streamType)
{
    const QJsonObject data{{u"server_url"_s, provider.url()},
                           {u"username"_s, provider.user()},
                           {u"password"_s, provider.password()},
                           {u"expires_at"_s, u"2030-01-01T00:00:00Z"_s},
                           {u"stream_type"_s, streamType}};
    answer(key, QJsonDocument(QJsonObject{{u"status"_s, u"success"_s}, {u"data"_s, data}})
                    .toJson(QJsonDocument::Compact));
}

void SubscriptionEndpoint::answer(const QString &key, const QByteArray &body)
{
    const std::lock_guard lock(mutex);
    answers.insert(key, body);
}

void SubscriptionEndpoint::hold()
{
    server->on(path(), [this](const HttpRequest &request) {
        HttpReply held = reply(request);
        held.held = true;
        return held;
    });
}

void SubscriptionEndpoint::release()
{
    server->release(path());
}

QString SubscriptionEndpoint::keyIn(const HttpRequest &request)
{
    return QJsonDocument::fromJson(request.body)["subscription_key"_L1].toString();
}

QStringList SubscriptionEndpoint::keys() const
{
    QStringList keys;
    for (const HttpRequest &request : server->requests()) {
        keys << keyIn(request);
    }
    return keys;
}

HttpReply SubscriptionEndpoint::reply(const HttpRequest &request) const
{
    const std::lock_guard lock(mutex);
    return HttpReply::json(answers.value(
        keyIn(request), R"({"status":"error","message":"Unknown subscription key"})"_ba));
}
