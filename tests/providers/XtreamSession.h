#pragma once

#include "providers/Await.h"
#include "providers/XtreamClient.h"
#include "support/HttpReplies.h"

#include <memory>
#include <utility>

/// A provider's server and a client with an account on it, and the outcomes of requests as texts.
struct XtreamSession
{
    static constexpr QStringView api = u"/player_api.php";
    inline static const QByteArray failed = QByteArrayLiteral("failed");

    XtreamSession()
    {
        server.on(api.toString(), HttpReply::json(QByteArrayLiteral("{}")));
        client->configure(server.url(), QStringLiteral("joe"), QStringLiteral("secret"));
    }

    /// Sets the reply to every request of the client.
    void reply(const HttpReply &reply) { server.on(api.toString(), reply); }

    /// Sends one request and gives the compact JSON of its reply, or `failed`.
    QByteArray get(const QString &action = {}, const QString &extra = {})
    {
        using Reply = std::pair<QJsonDocument, bool>;
        const auto answer = await<Reply>([&](auto callback) {
            client->get(action, extra, [callback](const QJsonDocument &document, bool ok) {
                callback({document, ok});
            });
        });
        const auto &[document, ok] = answer.value;
        if (answer.calls != 1 || ok == document.isNull()) {
            return "the callback came " + QByteArray::number(answer.calls) + " times";
        }
        return ok ? document.toJson(QJsonDocument::Compact) : failed;
    }

    /// Checks the account and gives the message for the user, or "accepted".
    QString login()
    {
        using Login = std::pair<bool, QString>;
        const auto answer = await<Login>([&](auto callback) {
            client->testLogin([callback](bool ok, const QString &message) {
                callback({ok, message});
            });
        });
        const auto &[ok, message] = answer.value;
        if (answer.calls != 1 || ok != message.isEmpty()) {
            return QStringLiteral("the callback came %1 times").arg(answer.calls);
        }
        return ok ? QStringLiteral("accepted") : message;
    }

    /// The target of the only request, from the query on.
    QString onlyQuery() const
    {
        const QList<HttpRequest> requests = server.requests();
        return requests.size() == 1 ? requests.first().target.section(u'?', 1)
                                    : QStringLiteral("%1 requests").arg(requests.size());
    }

    HttpServer server;
    std::unique_ptr<XtreamClient> client = std::make_unique<XtreamClient>(nullptr);
};

Q_DECLARE_METATYPE(HttpReply)
