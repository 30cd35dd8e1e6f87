// The program is killed at random moments while it loads and stores: its sources stay, and nothing
// that it stored is half true. VANTIRO_KILLS sets how often (8), VANTIRO_SEED repeats a run.

#include "fakeprovider/XtreamProvider.h"
#include "model/SourceManager.h"
#include "providers/SampleCatalogs.h"
#include "providers/XtreamCatalog.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>

#include <memory>
#include <random>

using namespace Qt::StringLiterals;

namespace {

const QString account = u"Account"_s;
const QString playlist = u"Playlist"_s;
constexpr int channelsOfPlaylist = 20'000;

int environmentNumber(const char *name, int otherwise)
{
    bool ok = false;
    const int number = qEnvironmentVariableIntValue(name, &ok);
    return ok ? number : otherwise;
}

QByteArray longPlaylist()
{
    QByteArray text("#EXTM3U\n");
    for (int number = 0; number < channelsOfPlaylist; ++number) {
        text += "#EXTINF:-1 group-title=\"News\",Channel " + QByteArray::number(number) +
                "\nhttp://127.0.0.1:9/" + QByteArray::number(number) + '\n';
    }
    return text;
}

} // namespace

class tst_Kill : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void keepsWhatWasStored();

private:
    /// Starts the program on a catalog that is a day old.
    void start(const QString &activeSource);
    bool isLoaded(const QString &source) const;
    QString damage() const;

    XtreamProvider provider;
    AccountCatalog catalog;
    QList<SourceConfig> sources;
    QProcess program;
};

void tst_Kill::initTestCase()
{
    PrivateProfile::current().clear();
    provider.generateCatalog({20, 5000, 8000, 3000});
    const auto reply = [this](const QString &action) { return provider.reply(action); };
    catalog = {namesOf(parseCategories(reply(XtreamAction::liveCategories))),
               namesOf(parseLiveStreams(reply(XtreamAction::liveStreams))),
               namesOf(parseCategories(reply(XtreamAction::vodCategories))),
               namesOf(parseVodStreams(reply(XtreamAction::vodStreams))),
               namesOf(parseCategories(reply(XtreamAction::seriesCategories))),
               namesOf(parseSeries(reply(XtreamAction::series)))};
    provider.http().on(u"/list.m3u"_s, bodyReply(longPlaylist()));
    sources = {sourceFor(provider, account),
               playlistSource(playlist, provider.http().url(u"/list.m3u"_s), neverLoaded),
               playlistSource(u"Never loaded"_s, u"/nowhere"_s, neverLoaded)};
    program.setProgram(QStringLiteral(VANTIRO_PLAYER));
    program.setProcessChannelMode(QProcess::ForwardedChannels);
}

void tst_Kill::start(const QString &activeSource)
{
    SourceManager manager(nullptr);
    for (const SourceConfig &source : std::as_const(sources)) {
        manager.saveSource(source);
    }
    manager.setLastActiveSourceName(activeSource);
    provider.http().clearRequests();
    program.start();
}

bool tst_Kill::isLoaded(const QString &source) const
{
    return source == account ? cachedCatalog(account) == catalog
                             : cachedChannels(playlist).size() == channelsOfPlaylist;
}

/// What of the stored state is neither as it was nor as it should be; empty for nothing.
QString tst_Kill::damage() const
{
    QList<SourceConfig> stored = SourceManager(nullptr).sources();
    for (SourceConfig &source : stored) {
        source.lastUpdated = 0;
    }
    if (stored != sources) {
        return u"%1 sources"_s.arg(stored.size());
    }
    // A half of a section that was not fetched yet is empty; one that is damaged is not there.
    const AccountCatalog cached = cachedCatalog(account);
    for (int part = 0; part < accountParts; ++part) {
        const QStringList &names = cached.at(part);
        if (!names.isEmpty() && names != notCached && names != catalog.at(part)) {
            return u"part %1 of the account has %2 entries"_s.arg(part).arg(names.size());
        }
    }
    const QStringList channels = cachedChannels(playlist);
    if (channels != notCached && channels.size() != channelsOfPlaylist) {
        return u"the playlist has %1 channels"_s.arg(channels.size());
    }
    return {};
}

void tst_Kill::keepsWhatWasStored()
{
    // A sanitized program on a busy machine takes over a minute.
    constexpr int patienceMs = 180'000;
    const int kills = environmentNumber("VANTIRO_KILLS", 8);
    const auto seed = static_cast<unsigned>(
        environmentNumber("VANTIRO_SEED", static_cast<int>(std::random_device()() >> 1U)));
    qInfo("VANTIRO_KILLS=%d VANTIRO_SEED=%u", kills, seed);
    std::mt19937 random(seed);

    // How long an undisturbed run takes.
    QElapsedTimer clock;
    clock.start();
    start(account);
    QTRY_VERIFY_WITH_TIMEOUT(isLoaded(account), patienceMs);
    const int wholeMs = static_cast<int>(clock.elapsed());
    program.kill();
    QVERIFY(program.waitForFinished());

    std::uniform_int_distribution<int> moments(wholeMs / 3, wholeMs);
    int interrupted = 0;
    for (int kill = 0; kill < kills; ++kill) {
        start(random() % 3 == 0 ? playlist : account);
        QVERIFY(!program.waitForFinished(moments(random)));
        program.kill();
        QVERIFY(program.waitForFinished());
        interrupted += isLoaded(account) && isLoaded(playlist) ? 0 : 1;
        const QString damaged = damage();
        QVERIFY2(damaged.isEmpty(), qPrintable(u"kill %1: "_s.arg(kill) + damaged));
    }
    qInfo("%d of %d kills left a cache that is not complete", interrupted, kills);

    // The next starts repair all of it.
    for (const QString &source : {account, playlist}) {
        start(source);
        // Asked once more, a cache that was complete before may be just about to be replaced.
        QVERIFY(QTest::qWaitFor([&] { return isLoaded(source); }, patienceMs));
        program.kill();
        QVERIFY(program.waitForFinished());
        QCOMPARE(damage(), QString());
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_Kill)
#include "tst_Kill.moc"
