#pragma once

#include <QHostAddress>
#include <QList>
#include <QTcpServer>

class QTcpSocket;

/// The address at which the providers of vantiro_providers_loopback look for the subscription
/// service. Passes each connection on to a server on another loopback port, byte by byte.
class SubscriptionService
{
public:
    /// Listens from now on; connections go to `targetPort`.
    explicit SubscriptionService(quint16 targetPort);

    bool isListening() const { return server.isListening(); }

    static quint16 port();
    static QString url();

private:
    void passOn(QTcpSocket *client, quint16 targetPort);

    QTcpServer server;
};
