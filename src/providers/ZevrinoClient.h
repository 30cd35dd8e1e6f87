#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>

class BackgroundJobs;
class QNetworkAccessManager;

/// Exchanges a Zevrino subscription key for the credentials of an Xtream Codes account.
///
/// GUI thread only. Nothing is kept between calls; several may run side by side.
class ZevrinoClient final : public QObject
{
    Q_OBJECT

public:
    /// What the service hands out for a valid key, as it writes it.
    struct Credentials
    {
        QString serverUrl;
        QString username;
        QString password;
        QString expiresAt;
        QString streamType;

        bool operator==(const Credentials &) const = default;
    };

    /// What a reply says.
    struct Outcome
    {
        bool ok = false;
        Credentials credentials; ///< empty on failure
        QString message;         ///< for the user; empty on success
    };

    /// Success, the credentials (empty on failure), a message for the user (empty on success).
    using Callback = std::function<void(bool, const Credentials &, const QString &)>;

    /// Asks the service at `baseUrl`, an address without the path.
    ZevrinoClient(const QString &baseUrl, QObject *parent);

    /// Asks the service. The callback is called exactly once, later, on the GUI thread, unless the
    /// client is destroyed first. A service that makes no progress for replyTimeoutMs counts as
    /// unreachable.
    void resolve(const QString &subscriptionKey, Callback callback);

    /// Reads the body of a reply without a network error. Stateless.
    static Outcome readReply(const QByteArray &body);

private:
    QNetworkAccessManager *network;
    BackgroundJobs *parsing;
    QString endpoint;
};
