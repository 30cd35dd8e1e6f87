#include "providers/SubscriptionService.h"

#include <QNetworkProxy>
#include <QTcpSocket>

using namespace Qt::StringLiterals;

SubscriptionService::SubscriptionService(quint16 targetPort)
{
    QObject::connect(&server, &QTcpServer::newConnection, &server, [this, targetPort] {
        while (QTcpSocket *client = server.nextPendingConnection()) {
            passOn(client, targetPort);
        }
    });
    server.setProxy(QNetworkProxy::NoProxy);
    server.listen(QHostAddress::LocalHost, port());
}

quint16 SubscriptionService::port()
{
    return VANTIRO_TEST_SUBSCRIPTION_PORT;
}

QString SubscriptionService::url()
{
    return u"" VANTIRO_SUBSCRIPTION_BASE_URL "/api/v1/subscription/credentials"_s;
}

void SubscriptionService::passOn(QTcpSocket *client, quint16 targetPort)
{
    auto *target = new QTcpSocket(client);
    target->setProxy(QNetworkProxy::NoProxy);
    const auto copy = [](QTcpSocket *from, QTcpSocket *to) { to->write(from->readAll()); };
    QObject::connect(client, &QTcpSocket::readyRead, target,
                     [copy, client, target] { copy(client, target); });
    QObject::connect(target, &QTcpSocket::readyRead, client,
                     [copy, client, target] { copy(target, client); });
    QObject::connect(client, &QTcpSocket::disconnected, target, &QTcpSocket::disconnectFromHost);
    QObject::connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
    QObject::connect(target, &QTcpSocket::disconnected, client, &QTcpSocket::disconnectFromHost);
    QObject::connect(target, &QTcpSocket::errorOccurred, client, &QTcpSocket::disconnectFromHost);
    for (QTcpSocket *socket : {client, target}) {
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    }
    target->connectToHost(QHostAddress::LocalHost, targetPort);
    copy(client, target);
}
