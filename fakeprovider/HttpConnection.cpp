#include "fakeprovider/HttpConnection.h"

#include "fakeprovider/Gzip.h"

#include <QSslSocket>
#include <QTcpSocket>
#include <QUrl>
#include <QUrlQuery>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Enough to keep a client busy, little enough to notice soon that it went away.
constexpr qint64 kQueueLimit = 256LL * 1024;
constexpr int kPaceIntervalMs = 10;

// QNetworkAccessManager takes a reply that arrives while it still writes the request, but does
// not note that it is reading one: when that reply is then aborted, it reports success and
// sends the request again. A reply that will be aborted therefore waits this long.
constexpr int kFaultyReplyDelayMs = 100;

QByteArray reasonPhrase(int status)
{
    switch (status) {
    case 200:
        return "OK"_ba;
    case 206:
        return "Partial Content"_ba;
    case 301:
        return "Moved Permanently"_ba;
    case 302:
        return "Found"_ba;
    case 307:
        return "Temporary Redirect"_ba;
    case 308:
        return "Permanent Redirect"_ba;
    case 401:
        return "Unauthorized"_ba;
    case 403:
        return "Forbidden"_ba;
    case 404:
        return "Not Found"_ba;
    case 416:
        return "Range Not Satisfiable"_ba;
    case 500:
        return "Internal Server Error"_ba;
    case 503:
        return "Service Unavailable"_ba;
    default:
        return "Status"_ba;
    }
}

qint64 queuedBytes(const QTcpSocket *socket)
{
    const auto *tls = qobject_cast<const QSslSocket *>(socket);
    return socket->bytesToWrite() + (tls != nullptr ? tls->encryptedBytesToWrite() : 0);
}

} // namespace

HttpConnection::HttpConnection(QTcpSocket *clientSocket, HttpService &httpService, QObject *parent)
    : QObject(parent)
    , service(httpService)
    , socket(clientSocket)
{
    socket->setParent(this);
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, this, [this] { headSent ? sendBody() : sendHead(); });
    connect(socket, &QTcpSocket::readyRead, this, &HttpConnection::readRequest);
    connect(socket, &QTcpSocket::bytesWritten, this, &HttpConnection::sendBody);
    if (auto *tls = qobject_cast<QSslSocket *>(socket); tls != nullptr)
        connect(tls, &QSslSocket::encryptedBytesWritten, this, &HttpConnection::sendBody);
    connect(socket, &QTcpSocket::disconnected, this, &HttpConnection::closed);
    if (socket->state() == QAbstractSocket::ConnectedState)
        readRequest();
    else
        closed();
}

HttpConnection::~HttpConnection()
{
    socket->disconnect(this);
    if (replying)
        service.replyEnds(request.path);
}

void HttpConnection::release()
{
    if (!held)
        return;
    held = false;
    startDelay();
}

void HttpConnection::hangUp()
{
    socket->abort();
}

void HttpConnection::hangUpAfterReply()
{
    isLast = true;
    if (!replying)
        hangUp();
}

void HttpConnection::closed()
{
    timer.stop();
    if (replying)
        service.replyEnds(request.path);
    replying = false;
    deleteLater();
}

void HttpConnection::readRequest()
{
    if (replying)
        return; // the next request waits in the socket
    received += socket->readAll();
    if (bodyBegin < 0) {
        const qsizetype headEnd = received.indexOf("\r\n\r\n");
        if (headEnd < 0)
            return;
        if (!parseHead(headEnd)) {
            hangUp();
            return;
        }
        bodyBegin = headEnd + 4;
        bodyLength = request.header("Content-Length"_ba).toLongLong();
    }
    if (received.size() < bodyBegin + bodyLength)
        return;
    request.body = received.sliced(bodyBegin, bodyLength);
    received.remove(0, bodyBegin + bodyLength);
    bodyBegin = -1;
    beginReply();
}

bool HttpConnection::parseHead(qsizetype headEnd)
{
    const QList<QByteArray> lines = received.first(headEnd).replace("\r\n", "\n").split('\n');
    const QList<QByteArray> words = lines.first().split(' ');
    if (words.size() != 3 || !words[2].startsWith("HTTP/1."))
        return false;

    request = {};
    request.method = words[0];
    request.target = QString::fromLatin1(words[1]);
    const qsizetype queryMark = words[1].indexOf('?');
    request.path =
        QUrl::fromPercentEncoding(words[1].first(queryMark < 0 ? words[1].size() : queryMark));
    if (queryMark >= 0) {
        const QUrlQuery query(QString::fromUtf8(words[1].sliced(queryMark + 1)));
        request.query = query.queryItems(QUrl::FullyDecoded);
    }
    for (const QByteArray &line : lines.sliced(1)) {
        const qsizetype colon = line.indexOf(':');
        if (colon > 0)
            request.headers.append({line.first(colon), line.sliced(colon + 1).trimmed()});
    }
    clientKeepsAlive = words[2] != "HTTP/1.0" &&
                       request.header("Connection"_ba).compare("close", Qt::CaseInsensitive);
    return true;
}

void HttpConnection::beginReply()
{
    reply = service.answer(request);
    replying = true;
    headSent = false;
    bodyEnded = false;
    sent = 0;
    produced.clear();
    producedTaken = 0;
    producedOffset = 0;
    service.replyBegins(request.path);
    held = reply.held && !service.isReleased(request.path);
    if (!reply.neverAnswer && !held)
        startDelay();
}

void HttpConnection::startDelay()
{
    const bool faulty = reply.cutAfter >= 0 || reply.stallAfter >= 0;
    timer.start(std::max(reply.delayMs, faulty ? kFaultyReplyDelayMs : 0));
}

void HttpConnection::sendHead()
{
    prepareBody();
    writeHead();
    headSent = true;
    bodyEnded = request.method == "HEAD";
    bodyLimit = reply.cutAfter >= 0 ? reply.cutAfter : reply.stallAfter;
    bodyClock.start();
    sendBody();
}

void HttpConnection::prepareBody()
{
    if (reply.gzip) {
        reply.body = packedWithGzip(reply.body);
        reply.headers.append({"Content-Encoding"_ba, "gzip"_ba});
    }
    if (reply.supportRange && hasLength() && !reply.chunked && reply.status == 200) {
        reply.headers.append({"Accept-Ranges"_ba, "bytes"_ba});
        applyRange();
    }
    keepAlive = clientKeepsAlive && (reply.chunked || hasLength());
}

bool HttpConnection::hasLength() const
{
    return !reply.producer || reply.producedBytes >= 0;
}

qint64 HttpConnection::bodySize() const
{
    return reply.producer ? reply.producedBytes : reply.body.size();
}

void HttpConnection::keepPart(qint64 from, qint64 size)
{
    if (!reply.producer) {
        reply.body = reply.body.sliced(from, size);
        return;
    }
    reply.producedBytes = size;
    reply.producer = [whole = reply.producer, from](qint64 offset) { return whole(from + offset); };
}

void HttpConnection::applyRange()
{
    const QByteArray range = request.header("Range"_ba);
    const qsizetype dash = range.indexOf('-');
    if (!range.startsWith("bytes=") || dash < 0 || range.contains(','))
        return;
    const QByteArray fromText = range.sliced(6, dash - 6);
    const QByteArray toText = range.sliced(dash + 1);
    const qint64 size = bodySize();
    qint64 from = fromText.toLongLong();
    qint64 to = toText.isEmpty() ? size - 1 : std::min(toText.toLongLong(), size - 1);
    if (fromText.isEmpty()) { // the last so many bytes
        from = std::max<qint64>(0, size - toText.toLongLong());
        to = size - 1;
    }
    if (from > to) {
        reply.status = 416;
        reply.producer = nullptr;
        reply.body.clear();
        reply.headers.append({"Content-Range"_ba, "bytes */" + QByteArray::number(size)});
        return;
    }
    reply.status = 206;
    keepPart(from, to - from + 1);
    reply.headers.append({"Content-Range"_ba, "bytes " + QByteArray::number(from) + '-' +
                                                  QByteArray::number(to) + '/' +
                                                  QByteArray::number(size)});
}

bool HttpConnection::replyHasHeader(const QByteArray &name) const
{
    return std::any_of(reply.headers.cbegin(), reply.headers.cend(), [&name](const auto &header) {
        return header.first.compare(name, Qt::CaseInsensitive) == 0;
    });
}

void HttpConnection::writeHead()
{
    QByteArray head =
        "HTTP/1.1 " + QByteArray::number(reply.status) + ' ' + reasonPhrase(reply.status) + "\r\n";
    const auto addHeader = [this, &head](const QByteArray &name, const QByteArray &value) {
        if (!replyHasHeader(name))
            head += name + ": " + value + "\r\n";
    };
    for (const auto &[name, value] : reply.headers)
        head += name + ": " + value + "\r\n";
    if (!reply.contentType.isEmpty())
        addHeader("Content-Type"_ba, reply.contentType);
    if (reply.chunked)
        addHeader("Transfer-Encoding"_ba, "chunked"_ba);
    else if (hasLength())
        addHeader("Content-Length"_ba, QByteArray::number(bodySize()));
    addHeader("Connection"_ba, keepAlive ? "keep-alive"_ba : "close"_ba);
    socket->write(head + "\r\n");
}

qint64 HttpConnection::sendAllowance() const
{
    qint64 allowance = kQueueLimit - queuedBytes(socket);
    if (bodyLimit >= 0)
        allowance = std::min(allowance, bodyLimit - sent);
    if (reply.bytesPerSecond > 0)
        allowance = std::min(allowance, bytesDue() - sent);
    return allowance;
}

/// How much of a paced body may have been sent by now.
qint64 HttpConnection::bytesDue() const
{
    const qint64 elapsed = bodyClock.elapsed();
    const auto dueAfter = [this](qint64 ms) {
        return reply.burst + ms * reply.bytesPerSecond / 1000;
    };
    if (reply.pauseAfter < 0 || dueAfter(elapsed) <= reply.pauseAfter)
        return dueAfter(elapsed);
    return std::max(reply.pauseAfter, dueAfter(elapsed - reply.pauseMs));
}

QByteArray HttpConnection::nextBytes(qint64 most)
{
    if (!reply.producer)
        return reply.body.sliced(sent, std::min(most, reply.body.size() - sent));
    if (producedTaken == produced.size()) {
        produced = reply.producer(producedOffset);
        if (reply.producedBytes >= 0)
            produced.truncate(reply.producedBytes - producedOffset);
        producedOffset += produced.size();
        producedTaken = 0;
    }
    QByteArray bytes =
        produced.sliced(producedTaken, std::min<qint64>(most, produced.size() - producedTaken));
    producedTaken += bytes.size();
    return bytes;
}

void HttpConnection::sendBody()
{
    if (!replying || !headSent)
        return;
    for (qint64 allowance = sendAllowance(); !bodyEnded && allowance > 0;
         allowance = sendAllowance()) {
        const QByteArray bytes = nextBytes(allowance);
        bodyEnded = bytes.isEmpty();
        sent += bytes.size();
        if (reply.chunked)
            socket->write(QByteArray::number(bytes.size(), 16) + "\r\n" + bytes + "\r\n");
        else
            socket->write(bytes);
    }
    if (!bodyEnded && bodyLimit >= 0 && sent == bodyLimit) {
        if (reply.cutAfter >= 0)
            socket->disconnectFromHost(); // what is queued still goes out
        return;
    }
    if (!bodyEnded && reply.bytesPerSecond > 0)
        timer.start(kPaceIntervalMs);
    if (bodyEnded && queuedBytes(socket) == 0)
        endReply();
}

void HttpConnection::endReply()
{
    timer.stop();
    replying = false;
    service.replyEnds(request.path);
    if (!keepAlive || isLast) {
        socket->disconnectFromHost();
        return;
    }
    // Not at once: a client that pipelines would otherwise deepen the stack with every reply.
    QMetaObject::invokeMethod(this, &HttpConnection::readRequest, Qt::QueuedConnection);
}
