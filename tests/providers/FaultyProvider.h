#pragma once

#include "fakeprovider/HttpServer.h"
#include "fakeprovider/TlsCertificate.h"

#include <QList>
#include <QTemporaryDir>

#include <functional>
#include <memory>

/// One of the faults that providers have.
struct Fault
{
    /// What becomes of a request under the fault.
    enum class Outcome
    {
        Works,
        Fails,     ///< as a network failure
        WrongBody, ///< succeeds with a body that is not what was asked for
        LargeBody  ///< the same, with one that is too large for a single answer
    };
    enum class Transport
    {
        Plain,
        Refused,
        Closed,
        ExpiredTls,
        CutTls
    };

    const char *name = "";
    Outcome outcome = Outcome::Fails;
    Transport transport = Transport::Plain;
    /// The reply in place of the good one.
    std::function<HttpReply(const HttpRequest &request, const HttpReply &good)> reply = {};
    /// The transfer timeout for the clients under the fault. Shorter for what ends only by it.
    int timeoutMs = patientMs;

    static constexpr int patientMs = 20'000;
};

/// A provider of all that the program asks for, at one address: a playlist, an account, a
/// subscription that leads to the account, and a poster. It answers well, or with a fault.
class FaultyProvider
{
public:
    static const QList<Fault> &faults();

    /// Answers well at an address that suits the fault, until begin().
    explicit FaultyProvider(Fault providerFault);

    QString url(const QString &path = {}) const;
    QString playlistUrl() const { return url(QStringLiteral("/list.m3u")); }
    QString posterUrl() const { return url(QStringLiteral("/poster.png")); }

    void begin();
    /// Answers well again, at the same address.
    void end();

private:
    bool isTls() const;
    HttpServer &goodServer() { return isTls() ? *tls : plain; }
    HttpServer &faultyServer();
    static void serveGood(HttpServer &server);

    const Fault fault;
    QTemporaryDir directory;
    std::unique_ptr<TlsCertificate> certificate;
    std::unique_ptr<TlsCertificate> expiredCertificate;
    HttpServer plain;
    HttpServer otherHost;
    std::unique_ptr<HttpServer> tls;
    std::unique_ptr<HttpServer> expiredTls;
    quint16 port = 0;
};
