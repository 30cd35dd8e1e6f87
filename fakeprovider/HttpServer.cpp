#include "fakeprovider/HttpServer.h"

#include "fakeprovider/HttpConnection.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QHostAddress>
#include <QNetworkProxy>
#include <QSet>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>

#include <algorithm>
#include <mutex>

using namespace Qt::StringLiterals;

namespace {

QByteArray contentTypeOf(const QString &path)
{
    static const QHash<QString, QByteArray> types{
        {u"m3u8"_s, "application/vnd.apple.mpegurl"_ba},
        {u"m3u"_s, "audio/x-mpegurl"_ba},
        {u"ts"_s, "video/mp2t"_ba},
        {u"mp4"_s, "video/mp4"_ba},
        {u"mkv"_s, "video/x-matroska"_ba},
        {u"mp3"_s, "audio/mpeg"_ba},
        {u"srt"_s, "application/x-subrip"_ba},
        {u"json"_s, "application/json"_ba},
        {u"png"_s, "image/png"_ba},
        {u"jpg"_s, "image/jpeg"_ba},
    };
    return types.value(QFileInfo(path).suffix().toLower(), "application/octet-stream"_ba);
}

std::unique_ptr<QTcpServer> makeTlsServer(const HttpServer::Tls &tls)
{
    QFile keyFile(tls.keyFile);
    if (!keyFile.open(QIODevice::ReadOnly))
        qFatal("HttpServer: cannot read the TLS key");
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificateChain(QSslCertificate::fromPath(tls.certificateFile));
    configuration.setPrivateKey(QSslKey(&keyFile, QSsl::Ec));
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    auto server = std::make_unique<QSslServer>();
    server->setSslConfiguration(configuration);
    return server;
}

} // namespace

QByteArray HttpRequest::header(const QByteArray &name) const
{
    for (const auto &[headerName, value] : headers) {
        if (headerName.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    }
    return {};
}

QString HttpRequest::queryValue(const QString &name) const
{
    for (const auto &[key, value] : query) {
        if (key == name)
            return value;
    }
    return {};
}

HttpReply HttpReply::redirect(const QString &location, int status)
{
    HttpReply reply;
    reply.status = status;
    reply.headers.append({"Location"_ba, location.toUtf8()});
    return reply;
}

HttpReply HttpReply::json(const QByteArray &document)
{
    HttpReply reply;
    reply.body = document;
    reply.contentType = "application/json"_ba;
    return reply;
}

HttpReply HttpReply::file(const QString &path, const QByteArray &contentType)
{
    HttpReply reply;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        reply.status = 404;
        return reply;
    }
    reply.body = file.readAll();
    reply.contentType = contentType.isEmpty() ? contentTypeOf(path) : contentType;
    return reply;
}

/// The part of the server that lives on its thread. What the test's thread reads as well is
/// guarded by `mutex`; no handler is called while it is held.
class HttpServer::Private : public QObject, public HttpService
{
public:
    HttpReply answer(const HttpRequest &request) override;
    bool isReleased(const QString &path) const override;
    void replyBegins(const QString &path) override;
    void replyEnds(const QString &path) override;

    void start(std::unique_ptr<QTcpServer> tcpServer);
    void stop();
    bool listen();
    void acceptConnections();
    QList<HttpConnection *> connections(const QString &path) const;
    /// Runs `work` on the server's thread and waits for it.
    template <typename Work>
    void onThread(Work work);

    QThread thread;
    std::unique_ptr<QTcpServer> server; // only the server's thread
    Welcome manner = Welcome::Serve;    // likewise
    bool tls = false;
    quint16 port = 0;

    mutable std::mutex mutex;
    QHash<QString, Handler> exact;
    QList<std::pair<QString, Handler>> prefixes; // the longest first
    QSet<QString> released;
    QList<HttpRequest> requests;
    QHash<QString, int> open; // under the empty path: all
    QHash<QString, int> peak;
};

template <typename Work>
void HttpServer::Private::onThread(Work work)
{
    if (QThread::currentThread() == &thread)
        work();
    else
        QMetaObject::invokeMethod(this, work, Qt::BlockingQueuedConnection);
}

void HttpServer::Private::start(std::unique_ptr<QTcpServer> tcpServer)
{
    tcpServer->setProxy(QNetworkProxy::NoProxy);
    tcpServer->setMaxPendingConnections(1000);
    tcpServer->setListenBacklogSize(256);
    tcpServer->moveToThread(&thread);
    server = std::move(tcpServer);
    moveToThread(&thread);
    thread.setObjectName(u"HttpServer"_s);
    thread.start();
    bool listening = false;
    onThread([this, &listening] {
        connect(server.get(), &QTcpServer::pendingConnectionAvailable, this,
                &Private::acceptConnections);
        listening = listen();
    });
    if (!listening)
        qFatal("HttpServer: cannot listen on the loopback interface");
}

bool HttpServer::Private::listen()
{
    // A process that libVLC starts holds the closed socket for a moment, and with it the port.
    constexpr int patienceMs = 3000;
    constexpr int pauseMs = 5;
    const QDeadlineTimer deadline(patienceMs);
    while (!server->listen(QHostAddress::LocalHost, port)) {
        if (port == 0 || deadline.hasExpired())
            return false;
        QThread::msleep(pauseMs);
    }
    port = server->serverPort();
    return true;
}

void HttpServer::Private::stop()
{
    onThread([this] {
        server->close(); // first, so that a client that tries again is refused
        qDeleteAll(connections({}));
        server.reset();
    });
    thread.quit();
    thread.wait();
}

void HttpServer::Private::acceptConnections()
{
    while (QTcpSocket *socket = server->nextPendingConnection()) {
        if (manner == Welcome::Serve) {
            new HttpConnection(socket, *this, this);
            continue;
        }
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        if (manner == Welcome::Close || socket->bytesAvailable() > 0)
            socket->abort();
        else
            connect(socket, &QTcpSocket::readyRead, socket, &QTcpSocket::abort);
    }
}

QList<HttpConnection *> HttpServer::Private::connections(const QString &path) const
{
    QList<HttpConnection *> found =
        findChildren<HttpConnection *>(QString(), Qt::FindDirectChildrenOnly);
    found.removeIf([&path](const HttpConnection *connection) {
        return !path.isEmpty() && (!connection->isReplying() || connection->path() != path);
    });
    return found;
}

HttpReply HttpServer::Private::answer(const HttpRequest &request)
{
    Handler handler;
    {
        const std::lock_guard lock(mutex);
        requests.append(request);
        handler = exact.value(request.path);
        if (!handler) {
            const auto match =
                std::find_if(prefixes.cbegin(), prefixes.cend(), [&request](const auto &prefix) {
                    return request.path.startsWith(prefix.first);
                });
            if (match != prefixes.cend())
                handler = match->second;
        }
    }
    if (handler)
        return handler(request);
    HttpReply reply;
    reply.status = 404;
    reply.body = "not found"_ba;
    return reply;
}

bool HttpServer::Private::isReleased(const QString &path) const
{
    const std::lock_guard lock(mutex);
    return released.contains(path);
}

void HttpServer::Private::replyBegins(const QString &path)
{
    const std::lock_guard lock(mutex);
    for (const QString &key : {path, QString()}) {
        const int count = ++open[key];
        peak[key] = std::max(peak.value(key), count);
    }
}

void HttpServer::Private::replyEnds(const QString &path)
{
    const std::lock_guard lock(mutex);
    --open[path];
    --open[QString()];
}

HttpServer::HttpServer()
    : d(std::make_unique<Private>())
{
    d->start(std::make_unique<QTcpServer>());
}

HttpServer::HttpServer(const Tls &tls)
    : d(std::make_unique<Private>())
{
    d->tls = true;
    d->start(makeTlsServer(tls));
}

HttpServer::~HttpServer()
{
    d->stop();
}

quint16 HttpServer::port() const
{
    return d->port;
}

QString HttpServer::url(const QString &path) const
{
    return u"%1://127.0.0.1:%2%3"_s.arg(d->tls ? u"https"_s : u"http"_s, QString::number(d->port),
                                        path);
}

void HttpServer::on(const QString &path, const Handler &handler)
{
    const std::lock_guard lock(d->mutex);
    d->exact.insert(path, handler);
    d->released.remove(path);
}

void HttpServer::onPrefix(const QString &prefix, Handler handler)
{
    const std::lock_guard lock(d->mutex);
    d->prefixes.removeIf([&prefix](const auto &entry) { return entry.first == prefix; });
    d->prefixes.append({prefix, std::move(handler)});
    std::stable_sort(d->prefixes.begin(), d->prefixes.end(),
                     [](const auto &a, const auto &b) { return a.first.size() > b.first.size(); });
}

void HttpServer::serveDirectory(const QString &prefix, const QString &directory)
{
    onPrefix(prefix, [prefix, directory](const HttpRequest &request) {
        return HttpReply::file(QDir::cleanPath(directory + u'/' + request.path.mid(prefix.size())));
    });
}

QList<HttpRequest> HttpServer::requests() const
{
    const std::lock_guard lock(d->mutex);
    return d->requests;
}

int HttpServer::requestCount(const QString &path) const
{
    const std::lock_guard lock(d->mutex);
    if (path.isEmpty())
        return static_cast<int>(d->requests.size());
    return static_cast<int>(
        std::count_if(d->requests.cbegin(), d->requests.cend(),
                      [&path](const HttpRequest &request) { return request.path == path; }));
}

void HttpServer::clearRequests()
{
    const std::lock_guard lock(d->mutex);
    d->requests.clear();
    d->peak = d->open;
}

int HttpServer::openConnections(const QString &path) const
{
    const std::lock_guard lock(d->mutex);
    return d->open.value(path);
}

int HttpServer::peakConnections(const QString &path) const
{
    const std::lock_guard lock(d->mutex);
    return d->peak.value(path);
}

void HttpServer::dropConnections(const QString &path)
{
    d->onThread([this, &path] {
        const QList<HttpConnection *> connections = d->connections(path);
        for (HttpConnection *connection : connections) {
            if (connection->isReplying())
                connection->hangUp();
        }
    });
}

void HttpServer::release(const QString &path)
{
    d->onThread([this, &path] {
        {
            const std::lock_guard lock(d->mutex);
            d->released.insert(path);
        }
        const QList<HttpConnection *> connections = d->connections(path);
        for (HttpConnection *connection : connections)
            connection->release();
    });
}

void HttpServer::refuse()
{
    d->onThread([this] {
        d->server->close();
        const QList<HttpConnection *> connections = d->connections({});
        for (HttpConnection *connection : connections)
            connection->hangUpAfterReply();
    });
}

void HttpServer::welcome(Welcome manner)
{
    d->onThread([this, manner] { d->manner = manner; });
}

bool HttpServer::listenOn(quint16 port)
{
    bool listening = false;
    d->onThread([this, port, &listening] {
        d->server->close();
        d->port = port;
        listening = d->listen();
    });
    return listening;
}

bool HttpServer::listenAgain()
{
    bool listening = false;
    d->onThread([this, &listening] { listening = d->server->isListening() || d->listen(); });
    return listening;
}
