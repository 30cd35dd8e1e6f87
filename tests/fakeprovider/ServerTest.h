#pragma once

#include "fakeprovider/HttpServer.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QObject>
#include <QTest>

#include <memory>

/// A server and its client for each test function.
class ServerTest : public QObject
{
    Q_OBJECT

protected:
    QNetworkReply *get(const QString &path, const QByteArray &rangeHeader = {})
    {
        QNetworkRequest request{QUrl(server->url(path))};
        if (!rangeHeader.isEmpty())
            request.setRawHeader("Range", rangeHeader);
        return network->get(request);
    }
    static bool finished(const QNetworkReply *reply)
    {
        return QTest::qWaitFor([reply] { return reply->isFinished(); });
    }
    /// The reply to a request, once it is complete.
    QNetworkReply *fetch(const QString &path, const QByteArray &rangeHeader = {})
    {
        QNetworkReply *reply = get(path, rangeHeader);
        (void)finished(reply);
        return reply;
    }

    std::unique_ptr<HttpServer> server;
    std::unique_ptr<QNetworkAccessManager> network;

private Q_SLOTS:
    void init()
    {
        server = std::make_unique<HttpServer>();
        network = std::make_unique<QNetworkAccessManager>();
    }
    void cleanup()
    {
        network.reset();
        server.reset();
    }
};
