#pragma once

#include "fakeprovider/HttpServer.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class QTcpSocket;

/// What a connection asks of its server. All calls come from the server's thread.
class HttpService
{
public:
    virtual ~HttpService() = default;
    virtual HttpReply answer(const HttpRequest &request) = 0;
    virtual bool isReleased(const QString &path) const = 0;
    virtual void replyBegins(const QString &path) = 0;
    virtual void replyEnds(const QString &path) = 0;
};

/// One client's connection: reads one request after the other and sends each reply as it says.
/// Lives on the server's thread and deletes itself when the connection is closed.
class HttpConnection : public QObject
{
    Q_OBJECT

public:
    HttpConnection(QTcpSocket *clientSocket, HttpService &httpService, QObject *parent);
    ~HttpConnection() override;

    bool isReplying() const { return replying; }
    /// The path of the reply that is waiting or being sent.
    QString path() const { return request.path; }
    /// Sends a held reply.
    void release();
    /// Closes the connection without sending what is still queued.
    void hangUp();
    /// At once when no reply is under way.
    void hangUpAfterReply();

private:
    void readRequest();
    bool parseHead(qsizetype headEnd);
    void beginReply();
    void startDelay();
    void sendHead();
    void prepareBody();
    bool hasLength() const;
    qint64 bodySize() const;
    void keepPart(qint64 from, qint64 size);
    void applyRange();
    void writeHead();
    bool replyHasHeader(const QByteArray &name) const;
    void sendBody();
    qint64 sendAllowance() const;
    qint64 bytesDue() const;
    QByteArray nextBytes(qint64 most);
    void endReply();
    void closed();

    HttpService &service;
    QTcpSocket *socket;
    QByteArray received;
    qsizetype bodyBegin = -1; ///< where the request's body begins in `received`; -1 before that
    qsizetype bodyLength = 0;
    HttpRequest request;
    bool clientKeepsAlive = false;

    HttpReply reply;
    bool replying = false;
    bool headSent = false;
    bool held = false;
    bool keepAlive = false;
    bool isLast = false;   ///< the reply under way, whatever the client wants
    qint64 bodyLimit = -1; ///< bytes after which the reply stalls or is cut; -1 for none
    qint64 sent = 0;       ///< body bytes given to the socket
    bool bodyEnded = false;
    QByteArray produced; ///< what the producer gave last
    qsizetype producedTaken = 0;
    qint64 producedOffset = 0;
    QElapsedTimer bodyClock;
    QTimer timer; ///< the delay before the head, then the pace of the body
};
