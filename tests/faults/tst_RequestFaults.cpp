// Each request that the program makes, under each fault that providers have: what is reported, how
// much memory it takes, and that the next attempt works. tst_StreamFaults does it for streams.

#include "faults/Memory.h"
#include "providers/Await.h"
#include "providers/FaultyProvider.h"
#include "providers/PlaylistClient.h"
#include "providers/XtreamClient.h"
#include "providers/ZevrinoClient.h"
#include "support/TestMain.h"
#include "ui/PosterStore.h"

#include <QDir>
#include <QNetworkAccessManager>

#include <functional>

using namespace Qt::StringLiterals;

using Outcome = Fault::Outcome;

namespace {

/// The clients of one provider.
struct Clients
{
    explicit Clients(const FaultyProvider &provider)
        : xtream(nullptr)
        , playlist(nullptr)
        , zevrino(provider.url(), nullptr)
        , playlistUrl(provider.playlistUrl())
        , posterUrl(provider.posterUrl())
    {
        xtream.configure(provider.url(), u"u"_s, u"p"_s);
    }

    void setTimeout(int ms)
    {
        for (const QObject *client :
             std::initializer_list<QObject *>{&xtream, &playlist, &zevrino, &posters}) {
            client->findChild<QNetworkAccessManager *>()->setTransferTimeout(ms);
        }
    }

    XtreamClient xtream;
    PlaylistClient playlist;
    ZevrinoClient zevrino;
    PosterStore posters;
    const QString playlistUrl;
    const QString posterUrl;
};

const QString works = u"works"_s;
const QString fails = u"fails"_s;

QString outcomeOf(const Answer<QString> &answer)
{
    return answer.calls == 1 ? answer.value : u"the callback came %1 times"_s.arg(answer.calls);
}

template <typename Record>
QString catalogOutcome(Clients &clients,
                       void (XtreamClient::*fetch)(std::function<void(CatalogReply<Record>)>))
{
    return outcomeOf(await<QString>([&](auto callback) {
        (clients.xtream.*fetch)([callback](const CatalogReply<Record> &reply) {
            callback(reply.failed ? fails : reply.records.size() == 1 ? works : u"empty"_s);
        });
    }));
}

QString itemsOutcome(Clients &clients,
                     void (XtreamClient::*fetch)(const QString &, XtreamClient::ItemsCallback))
{
    return outcomeOf(await<QString>([&](auto callback) {
        (clients.xtream.*fetch)({}, [callback](const CatalogReply<MediaItem> &reply) {
            callback(reply.failed ? fails : reply.records.items().size() == 1 ? works : u"empty"_s);
        });
    }));
}

QString playlistOutcome(Clients &clients)
{
    return outcomeOf(await<QString>([&](auto callback) {
        clients.playlist.read(clients.playlistUrl, {}, [callback](const PlaylistReply &reply) {
            const bool failed = reply.outcome == PlaylistReply::Outcome::DownloadFailed;
            if (failed != reply.body.isEmpty() || failed == reply.error.isEmpty()) {
                callback(u"neither a body nor an error"_s);
            } else {
                callback(failed                                      ? fails
                         : reply.body.head().startsWith("#EXTM3U\n") ? works
                                                                     : u"other"_s);
            }
        });
    }));
}

QString episodesOutcome(Clients &clients)
{
    return outcomeOf(await<QString>([&](auto callback) {
        clients.xtream.fetchSeriesEpisodes(u"3"_s, [callback](const CatalogReply<Episode> &reply) {
            callback(reply.failed ? fails : reply.records.size() == 1 ? works : u"empty"_s);
        });
    }));
}

QString loginOutcome(Clients &clients)
{
    return outcomeOf(await<QString>([&](auto callback) {
        clients.xtream.testLogin(
            [callback](bool ok, const QString &message) { callback(ok ? works : message); });
    }));
}

QString keyOutcome(Clients &clients)
{
    return outcomeOf(await<QString>([&](auto callback) {
        clients.zevrino.resolve(
            u"KEY"_s, [callback](bool ok, const ZevrinoClient::Credentials &,
                                 const QString &message) { callback(ok ? works : message); });
    }));
}

QString posterOutcome(Clients &clients)
{
    clients.posters.request(clients.posterUrl);
    if (!QTest::qWaitFor([&] { return !clients.posters.isBusy(); }, 20'000)) {
        return u"is under way for ever"_s;
    }
    const bool stored =
        QDir(PrivateProfile::current().appDataDir() + "/thumb_cache"_L1).count() > 2;
    const bool shown = !clients.posters.find(clients.posterUrl).isNull();
    return stored != shown ? u"kept on disk only"_s : shown ? works : fails;
}

/// A request and what is reported of it when the network fails, and when the body is a wrong one.
struct Request
{
    const char *name;
    std::function<QString(Clients &)> send;
    QString failure = fails;
    QString wrongBody = fails;
    QString largeBody = wrongBody;
};

const QString loginFailure = u"Could not reach server or invalid response"_s;
const QString keyFailure = u"Could not reach server: "_s; // and the network layer's words

const QList<Request> &requests()
{
    using Client = XtreamClient;
    const auto categories = [](auto fetch) {
        return [fetch](Clients &clients) { return catalogOutcome<Category>(clients, fetch); };
    };
    const auto items = [](auto fetch) {
        return [fetch](Clients &clients) { return itemsOutcome(clients, fetch); };
    };
    static const QList<Request> all{
        {"playlist", playlistOutcome, fails, u"other"_s},
        {"live categories", categories(&Client::fetchLiveCategories)},
        {"film categories", categories(&Client::fetchVodCategories)},
        {"show categories", categories(&Client::fetchSeriesCategories)},
        {"channels", items(&Client::fetchLiveStreams)},
        {"films", items(&Client::fetchVodStreams)},
        {"shows", items(&Client::fetchSeries)},
        {"episodes", episodesOutcome},
        {"login", loginOutcome, loginFailure, loginFailure},
        {"key exchange", keyOutcome, keyFailure, u"Invalid response from server"_s, keyFailure},
        {"poster", posterOutcome},
    };
    return all;
}

QString expectedOutcome(const Request &request, Outcome outcome)
{
    switch (outcome) {
    case Outcome::Works:
        return works;
    case Outcome::Fails:
        return request.failure;
    case Outcome::WrongBody:
        return request.wrongBody;
    case Outcome::LargeBody:
        break;
    }
    return request.largeBody;
}

} // namespace

class tst_RequestFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachFault_data();
    void eachFault();
};

void tst_RequestFaults::eachFault_data()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < FaultyProvider::faults().size(); ++index) {
        QTest::newRow(FaultyProvider::faults().at(index).name) << index;
    }
}

void tst_RequestFaults::eachFault()
{
    constexpr qint64 mostMemoryMb = 500;
    QFETCH(const int, index);
    const Fault &fault = FaultyProvider::faults().at(index);
    for (const Request &request : requests()) {
        PrivateProfile::current().clear();
        FaultyProvider provider(fault);
        Clients clients(provider);
        provider.begin();
        clients.setTimeout(fault.timeoutMs);
        const qint64 memoryBefore = memoryMb("VmRSS"_ba);
        resetPeakMemory();
        const QString expected = expectedOutcome(request, fault.outcome);
        const QString outcome = request.send(clients);
        QVERIFY2(expected == keyFailure ? outcome.startsWith(expected) : outcome == expected,
                 qPrintable(QLatin1StringView(request.name) + ": "_L1 + outcome));
        const qint64 memory = memoryMb("VmHWM"_ba) - memoryBefore;
        QVERIFY2(memory < mostMemoryMb,
                 qPrintable(QLatin1StringView(request.name) + ": "_L1 + QString::number(memory)));
        provider.end();
        clients.setTimeout(Fault::patientMs);
        QCOMPARE(request.send(clients), works);
    }
}

VANTIRO_TEST_MAIN(tst_RequestFaults)
#include "tst_RequestFaults.moc"
