#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>
#include <memory>
#include <utility>

/// One request as it reached the server.
struct HttpRequest
{
    QByteArray method;
    QString path;                             ///< percent-decoded, without the query
    QString target;                           ///< as sent, with the query
    QList<std::pair<QString, QString>> query; ///< percent-decoded, in order; '+' stays '+'
    QList<std::pair<QByteArray, QByteArray>> headers;
    QByteArray body;

    /// The value of the first header with that name (in any case), or an empty array.
    QByteArray header(const QByteArray &name) const;
    /// The first query value under that name, or an empty string.
    QString queryValue(const QString &name) const;
};

/// What the server does with one request: the answer itself, and the faults that providers
/// have. All byte counts are bytes of the body as it travels (after gzip, without chunk
/// frames); for a ranged answer they count from the start of the range.
struct HttpReply
{
    int status = 200;
    QByteArray body;
    QByteArray contentType = QByteArrayLiteral("text/plain");
    QList<std::pair<QByteArray, QByteArray>> headers; ///< added to the server's own
    int delayMs = 0;                                  ///< time before the head is sent
    bool held = false;        ///< nothing is sent until HttpServer::release() for the path
    bool neverAnswer = false; ///< nothing is ever sent; the connection stays open
    qint64 cutAfter = -1;     ///< announces the whole length, closes the connection after that many
    qint64 stallAfter = -1;   ///< sends that many bytes, then nothing; the connection stays open
    /// After `pauseAfter` bytes a paced body pauses for `pauseMs`, then goes on where it was.
    qint64 pauseAfter = -1;
    int pauseMs = 0;
    bool chunked = false;
    bool gzip = false;
    bool supportRange = true; ///< answers a Range request for a status 200 body with 206

    /// An endless or computed body instead of `body`: called with the offset, returns the next
    /// bytes; an empty array ends the body. Runs on the server's thread and must not block.
    std::function<QByteArray(qint64 offset)> producer;
    /// How many bytes of the producer make up the body; its length is announced then, and ranges
    /// of it are answered. -1: as many as there are.
    qint64 producedBytes = -1;
    qint64 bytesPerSecond = 0; ///< paces the body; 0 sends as fast as the client reads
    qint64 burst = 0;          ///< bytes sent at once before the pacing begins

    static HttpReply redirect(const QString &location, int status = 302);
    /// A JSON document with its content type.
    static HttpReply json(const QByteArray &document);
    /// The file's bytes as they are now, 404 when it cannot be read. Without a content type the
    /// file's suffix decides.
    static HttpReply file(const QString &path, const QByteArray &contentType = {});

    /// A reply serves as a handler that gives it to every request.
    HttpReply operator()(const HttpRequest & /*request*/) const { return *this; }
};

/// A provider's web server on an ephemeral loopback port.
///
/// It runs on a thread of its own, so that it answers while the test's thread is busy and is
/// usable from any thread. Handlers and producers run on that thread: they guard what they share
/// with the test, and they do not block (use `delayMs`, `held` or `neverAnswer` to be slow).
/// A handler may call requests(), requestCount() and openConnections() of its own server.
/// The destructor closes all connections and returns at once.
class HttpServer
{
public:
    using Handler = std::function<HttpReply(const HttpRequest &)>;

    /// The PEM files that a TLS server shows; see TlsCertificate.
    struct Tls
    {
        QString certificateFile;
        QString keyFile;
    };

    HttpServer();
    explicit HttpServer(const Tls &tls);
    ~HttpServer();
    HttpServer(const HttpServer &) = delete;
    HttpServer &operator=(const HttpServer &) = delete;

    quint16 port() const;
    /// "http://127.0.0.1:<port>" (or https) followed by `path`.
    QString url(const QString &path = {}) const;

    /// Answers for exactly this path, whatever the query; replaces an earlier answer.
    void on(const QString &path, const Handler &handler);
    /// Answers for every path that begins with `prefix` and has no exact answer; the longest
    /// prefix wins. Any other path gets 404.
    void onPrefix(const QString &prefix, Handler handler);
    /// Serves the files below `directory`, with Range support and the content types of streams.
    void serveDirectory(const QString &prefix, const QString &directory);

    /// The requests received so far, in the order of their arrival.
    QList<HttpRequest> requests() const;
    /// How many requests came for exactly this path; an empty path counts all.
    int requestCount(const QString &path = {}) const;
    void clearRequests();

    /// Replies to this path (empty: to any path) that wait or are being sent. Falls when the
    /// reply is complete or the client has closed the connection. A handler does not see the
    /// reply that it is about to give.
    int openConnections(const QString &path = {}) const;
    /// The highest openConnections() for the path since the start or the last clearRequests().
    int peakConnections(const QString &path = {}) const;
    /// Hangs up on the open replies to this path (empty: to any path), now. When that happens
    /// before the head, QNetworkAccessManager sends a GET again, which is then counted again.
    void dropConnections(const QString &path = {});
    /// Lets the held replies to this path go, and those that are yet to come until on() sets
    /// another answer.
    void release(const QString &path);

    /// What becomes of a connection before its first request.
    enum class Welcome
    {
        Serve,
        Close,            ///< at once
        CloseOnFirstBytes ///< for who speaks TLS with this server: in the middle of the handshake
    };
    /// Receives connections like this from now on.
    void welcome(Welcome manner);

    /// Listens on this port instead of the ephemeral one. False when it is taken; the server then
    /// listens nowhere.
    bool listenOn(quint16 port);

    /// Stops listening and closes the connections, each after the reply that is under way: the next
    /// connect is refused.
    void refuse();
    /// Listens again, on the same port, after refuse(). False when the port was taken meanwhile.
    bool listenAgain();

private:
    class Private;
    std::unique_ptr<Private> d;
};
