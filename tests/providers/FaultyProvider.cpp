#include "providers/FaultyProvider.h"

#include "fakeprovider/Streams.h"
#include "support/HttpReplies.h"
#include "support/TestFiles.h"

#include <QBuffer>
#include <QDir>
#include <QHash>
#include <QImage>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QUrl>

#include <utility>

using namespace Qt::StringLiterals;

using Outcome = Fault::Outcome;
using Transport = Fault::Transport;

namespace {

constexpr qsizetype bombBytes = 100'000'000;
/// Time enough on a machine that is not busy.
constexpr int soonMs = 300;

QByteArray poster()
{
    QImage image(14, 21, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

HttpReply answerOfAccount(const QString &action)
{
    static const QHash<QString, QByteArray> answers{
        {u""_s, R"({"user_info":{"auth":1}})"_ba},
        {u"get_live_categories"_s, R"([{"category_id":"1","category_name":"News"}])"_ba},
        {u"get_vod_categories"_s, R"([{"category_id":"1","category_name":"Drama"}])"_ba},
        {u"get_series_categories"_s, R"([{"category_id":"1","category_name":"Crime"}])"_ba},
        {u"get_live_streams"_s, R"([{"stream_id":1,"name":"Channel","category_id":"1"}])"_ba},
        {u"get_vod_streams"_s, R"([{"stream_id":2,"name":"Film","category_id":"1"}])"_ba},
        {u"get_series"_s, R"([{"series_id":3,"name":"Show","category_id":"1"}])"_ba},
        {u"get_series_info"_s,
         R"({"episodes":{"1":[{"id":"4","title":"Episode","episode_num":1}]}})"_ba},
    };
    return HttpReply::json(answers.value(action));
}

/// `base` is the address at which the client found the server.
HttpReply goodAnswer(const HttpRequest &request, const QByteArray &base)
{
    if (request.path == "/list.m3u"_L1) {
        return bodyReply(
            "#EXTM3U\n#EXTINF:-1 group-title=\"News\",Channel\nhttp://127.0.0.1:9/1\n"_ba);
    }
    if (request.path == "/player_api.php"_L1) {
        return answerOfAccount(request.queryValue(u"action"_s));
    }
    if (request.path == "/poster.png"_L1) {
        return bodyReply(poster(), "image/png"_ba);
    }
    if (request.path == "/channel.ts"_L1) {
        return liveTs();
    }
    if (request.path == "/film.mp4"_L1) {
        return HttpReply::file(streamPath(u"film-faststart.mp4"_s));
    }
    return HttpReply::json(R"({"status":"success","data":{"username":"u","password":"p",)"
                           R"("server_url":")" +
                           base + R"("}})");
}

/// An address of a local file that would be a good answer.
QString localFile(const HttpReply &good)
{
    const QString path = QDir::temp().filePath(u"vantiro-redirected-here"_s);
    writeFile(path, good.body);
    return QUrl::fromLocalFile(path).toString();
}

HttpReply withHeader(HttpReply reply, const QByteArray &name, const QByteArray &value)
{
    reply.headers.append({name, value});
    return reply;
}

Fault statusFault(const char *name, int status, const QByteArray &header = {},
                  const QByteArray &value = {})
{
    return {name, Outcome::Fails, Transport::Plain,
            [=](const HttpRequest &, const HttpReply &good) {
                HttpReply reply = statusReply(status, good.body);
                if (!header.isEmpty()) {
                    reply = withHeader(reply, header, value);
                }
                return reply;
            }};
}

QList<Fault> makeFaults()
{
    const auto fails = [](const char *name, const auto &reply) {
        return Fault{name, Outcome::Fails, Transport::Plain, reply};
    };
    const auto wrong = [](const char *name, const auto &reply) {
        return Fault{name, Outcome::WrongBody, Transport::Plain, reply};
    };
    const auto works = [](const char *name, const auto &reply) {
        return Fault{name, Outcome::Works, Transport::Plain, reply};
    };
    using Request = const HttpRequest &;
    using Good = const HttpReply &;
    return {
        {"refused", Outcome::Fails, Transport::Refused},
        {"closed at once", Outcome::Fails, Transport::Closed},
        fails("shorter than announced",
              [](Request, Good good) { return cutShort(good, good.body.size() / 2); }),
        {"silent", Outcome::Fails, Transport::Plain, [](Request, Good) { return neverAnswers(); },
         soonMs},
        {"a byte now and then", Outcome::Fails, Transport::Plain,
         [](Request, Good good) {
             HttpReply reply = good;
             reply.bytesPerSecond = 10;
             return reply;
         },
         soonMs},
        wrong("longer than announced",
              [](Request, Good good) { return withHeader(good, "Content-Length"_ba, "5"_ba); }),
        fails(
            "not packed as announced",
            [](Request, Good good) { return withHeader(good, "Content-Encoding"_ba, "gzip"_ba); }),
        works(
            "an unknown encoding",
            [](Request, Good good) { return withHeader(good, "Content-Encoding"_ba, "utf-8"_ba); }),
        fails("301 to itself",
              [](Request request, Good) { return HttpReply::redirect(request.target, 301); }),
        fails("302 to a file",
              [](Request, Good good) { return HttpReply::redirect(localFile(good)); }),
        works("302 to another host", nullptr), // the provider knows the address
        wrong("200 with a page",
              [](Request, Good) { return bodyReply("<html>Log in</html>"_ba, "text/html"_ba); }),
        statusFault("401", 401, "WWW-Authenticate"_ba, "Basic realm=\"x\""_ba),
        statusFault("403", 403),
        statusFault("500", 500),
        statusFault("503", 503, "Retry-After"_ba, "1"_ba),
        {"100 MB of zeros", Outcome::LargeBody, Transport::Plain,
         [](Request, Good) {
             static const QByteArray zeros(bombBytes, '\0');
             return bodyReply(zeros, {});
         }},
        fails("100 MB of zeros, packed",
              [](Request, Good) {
                  static const QByteArray packed = qCompress(QByteArray(bombBytes, '\0')).sliced(4);
                  return withHeader(bodyReply(packed), "Content-Encoding"_ba, "deflate"_ba);
              }),
        {"an expired certificate", Outcome::Fails, Transport::ExpiredTls},
        {"closed in the TLS handshake", Outcome::Fails, Transport::CutTls},
    };
}

std::unique_ptr<HttpServer> makeTlsServer(const TlsCertificate &certificate)
{
    return std::make_unique<HttpServer>(
        HttpServer::Tls{certificate.certificateFile(), certificate.keyFile()});
}

std::unique_ptr<TlsCertificate> makeCertificate(const QString &directory,
                                                TlsCertificate::Validity validity)
{
    QDir().mkpath(directory);
    return std::make_unique<TlsCertificate>(directory, validity);
}

void trustOnly(const QList<const TlsCertificate *> &certificates)
{
    QList<QSslCertificate> authorities;
    for (const TlsCertificate *certificate : certificates) {
        authorities += QSslCertificate::fromPath(certificate->authorityFile());
    }
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates(authorities);
    QSslConfiguration::setDefaultConfiguration(configuration);
}

} // namespace

const QList<Fault> &FaultyProvider::faults()
{
    static const QList<Fault> all = makeFaults();
    return all;
}

FaultyProvider::FaultyProvider(Fault providerFault)
    : fault(std::move(providerFault))
{
    if (isTls()) {
        using Validity = TlsCertificate::Validity;
        certificate = makeCertificate(directory.filePath(u"current"_s), Validity::Current);
        expiredCertificate = makeCertificate(directory.filePath(u"expired"_s), Validity::Expired);
        trustOnly({certificate.get(), expiredCertificate.get()});
        tls = makeTlsServer(*certificate);
        expiredTls = makeTlsServer(*expiredCertificate);
        serveGood(*tls);
        serveGood(*expiredTls);
    }
    serveGood(plain);
    serveGood(otherHost);
    port = goodServer().port();
}

bool FaultyProvider::isTls() const
{
    return fault.transport == Transport::ExpiredTls || fault.transport == Transport::CutTls;
}

QString FaultyProvider::url(const QString &path) const
{
    return u"%1://127.0.0.1:%2%3"_s.arg(isTls() ? u"https"_s : u"http"_s).arg(port).arg(path);
}

HttpServer &FaultyProvider::faultyServer()
{
    return fault.transport == Transport::ExpiredTls ? *expiredTls : plain;
}

void FaultyProvider::serveGood(HttpServer &server)
{
    server.onPrefix(u"/"_s, [base = server.url().toUtf8()](const HttpRequest &request) {
        return goodAnswer(request, base);
    });
}

void FaultyProvider::begin()
{
    if (fault.transport == Transport::Refused) {
        plain.refuse();
    } else if (fault.transport == Transport::Closed || isTls()) {
        goodServer().refuse(); // what is open is closed
        plain.welcome(isTls() ? HttpServer::Welcome::CloseOnFirstBytes
                              : HttpServer::Welcome::Close);
        if (!faultyServer().listenOn(port)) {
            qFatal("FaultyProvider: the port is taken");
        }
    } else {
        plain.onPrefix(u"/"_s, [this](const HttpRequest &request) {
            return fault.reply ? fault.reply(request, goodAnswer(request, plain.url().toUtf8()))
                               : HttpReply::redirect(otherHost.url(request.target));
        });
    }
}

void FaultyProvider::end()
{
    faultyServer().refuse();
    plain.welcome(HttpServer::Welcome::Serve);
    serveGood(plain);
    if (!goodServer().listenOn(port)) {
        qFatal("FaultyProvider: the port is taken");
    }
}
