#pragma once

#include "providers/ReplyBytes.h"

#include <QByteArrayView>
#include <QList>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QObject>
#include <QString>
#include <QUrl>

#include <functional>
#include <optional>

class QNetworkAccessManager;
class ReplyBody;

/// What a web server is asked.
struct HttpQuestion
{
    /// Where redirects may lead. Never elsewhere than to HTTP and HTTPS addresses.
    enum class Redirects
    {
        NotToLessSafe, ///< from TLS only to TLS, which is Qt's default
        Anywhere
    };

    QNetworkRequest request;
    qint64 maxBytes = 0; ///< a longer body fails
    Redirects redirects = Redirects::NotToLessSafe;
    std::optional<QByteArray> posted; ///< the body of a POST; without it the request is a GET
    /// Takes the body of a successful answer as it arrives, instead of HttpExchange::take(). False
    /// aborts the exchange.
    std::function<bool(QByteArrayView)> receive;
};

/// A question to a web server and its answer, with the requests in between when it is redirected.
///
/// GUI thread only. Each hop is a request of its own, sent when the reply before it has finished:
/// when Qt 6.4 follows redirects itself, the next hop races with the network thread, which is not
/// done with the one before, and some requests are sent twice or fail. A reply that makes no
/// progress for the manager's transfer timeout fails; so does a question that is redirected more
/// than maxRedirects times. A child of the manager: delete it later, when its answer was taken.
class HttpExchange final : public QObject
{
    Q_OBJECT

public:
    /// Qt's own limit.
    static constexpr qsizetype maxRedirects = 50;

    /// Sends the request. Without an address it fails like one to a server that is not there.
    HttpExchange(QNetworkAccessManager *manager, HttpQuestion question);

    /// Makes the exchange fail, unless it has finished.
    void abort();

    /// The last reply: headers and status of the answer. Its body and its errors are told below.
    const QNetworkReply &reply() const { return *lastReply; }
    /// The addresses that were asked, in order.
    const QList<QUrl> &addresses() const { return asked; }
    /// How many bytes of the last reply's body have arrived, as unpacked.
    qint64 size() const;

    /// @name After finished()
    /// @{
    QNetworkReply::NetworkError error() const;
    bool failed() const { return error() != QNetworkReply::NoError; }
    /// In the user's language. May quote the addresses, with credentials: traceSafeError() does
    /// not.
    QString errorString() const;
    /// The body of the answer; empty when the exchange failed.
    ReplyBytes take();
    /// @}

Q_SIGNALS:
    /// The first request no longer waits behind others to the same server. Comes once or more.
    void begun();
    /// The exchange has failed, or the answer is complete. Comes once, later.
    void finished();

private:
    void send(const QNetworkRequest &request);
    void endHop();
    bool isRedirected() const;
    void follow(const QUrl &target);

    QNetworkAccessManager *network;
    HttpQuestion question;
    QList<QUrl> asked;
    QNetworkReply *lastReply = nullptr;
    ReplyBody *body = nullptr; ///< of lastReply
    /// Why the last redirect was not followed.
    QNetworkReply::NetworkError refusal = QNetworkReply::NoError;
};
