#pragma once

#include "providers/SubscriptionService.h"
#include "support/HttpServer.h"
#include "support/TlsCertificate.h"
#include "support/XtreamProvider.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <mutex>

/// The subscription service, on a real TLS server at the address that programs built with the
/// loopback providers ask. One at a time: the address is fixed.
class SubscriptionEndpoint
{
public:
    /// Ends the program when the address is taken.
    SubscriptionEndpoint();

    /// Makes this process trust the server's certificate. Other processes get authorityFile().
    void trust() const;
    QString authorityFile() const { return certificate.authorityFile(); }

    /// Hands out the provider's account for `key` from now on.
    void accept(const QString &key, const XtreamProvider &provider, const QString &streamType = {});
    /// Answers `key` with this body. Keys that were never given an answer are refused.
    void answer(const QString &key, const QByteArray &body);

    /// From now on answers wait for release().
    void hold();
    void release();
    /// Lets the answers to `key` come at once, whatever waits.
    void answerAtOnce(const QString &key);

    /// The keys that were exchanged so far, in the order of arrival.
    QStringList keys() const;

    HttpServer &http() { return server; }
    static QString path();

private:
    HttpReply reply(const HttpRequest &request) const;
    static QString keyIn(const HttpRequest &request);

    QTemporaryDir directory;
    TlsCertificate certificate;
    mutable std::mutex mutex;
    QHash<QString, QByteArray> answers; // guarded by the mutex
    QSet<QString> unheld;               // guarded by the mutex
    HttpServer server;
    SubscriptionService service;
};
