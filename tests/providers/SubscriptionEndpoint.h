#pragma once

#include "fakeprovider/HttpServer.h"
#include "fakeprovider/TlsCertificate.h"
#include "fakeprovider/XtreamProvider.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <mutex>
#include <optional>

/// The subscription service, on a real server.
class SubscriptionEndpoint
{
public:
    enum class Transport
    {
        Plain,
        Tls
    };

    explicit SubscriptionEndpoint(Transport transport = Transport::Plain);

    /// The base address to give to who asks the service.
    QString url() const { return server->url(); }
    /// The authority that signed the TLS server's certificate.
    QString authorityFile() const { return certificate->authorityFile(); }

    /// Hands out the provider's account for `key` from now on.
    void accept(const QString &key, const XtreamProvider &provider, const QString &streamType = {});
    /// Answers `key` with this body. Keys that were never given an answer are refused.
    void answer(const QString &key, const QByteArray &body);

    /// From now on answers wait for release().
    void hold();
    void release();

    /// The keys that were exchanged so far, in the order of arrival.
    QStringList keys() const;

    HttpServer &http() { return *server; }
    static QString path();

private:
    HttpReply reply(const HttpRequest &request) const;
    static QString keyIn(const HttpRequest &request);

    QTemporaryDir directory;
    std::optional<TlsCertificate> certificate; // of a TLS server
    mutable std::mutex mutex;
    QHash<QString, QByteArray> answers; // guarded by the mutex
    std::unique_ptr<HttpServer> server;
};
