#include "fakeprovider/HttpServer.h"
#include "guide/Guide.h"
#include "guide/GuideStore.h"
#include "guide/StoredGuide.h"
#include "library/Library.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"
#include "ui/SourceGuide.h"

#include <QDir>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

// Whether the active source has a guide, when it is updated, and what becomes of it.

namespace {

constexpr qint64 hour = 3600;
constexpr int updateMs = 30000;
const QString one = u"http://h/1"_s;
const QString two = u"http://h/2"_s;

MediaItem channel(const QString &id)
{
    MediaItem item;
    item.id = id;
    item.name = id;
    return item;
}

} // namespace

class tst_SourceGuide : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void nothingUnlessTurnedOn();
    void noSourceHasNoGuide();
    void turnedOnAndOff();
    void noSecondFetchAfterAnUpdate();
    void refresh_data();
    void refresh();
    void subscriptionWaitsForItsAccount();
    void offset();
    void anotherSource();
    void correction();
    void correctionOfAnUnstoredChannel();
    void correctionWhileAnUpdateRuns();
    void cancelled();
    void renamed();
    void deleted();

private:
    SourceConfig source(const QString &name = u"S"_s) const;
    GuideSettings settings(bool enabled = true) const;
    /// Turns the guide on and waits until it was fetched.
    bool turnOn();
    QString running(const QString &entry);
    void makeGuides();

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<HttpServer> server;
    std::unique_ptr<Library> library;
    std::unique_ptr<SourceGuide> guide;
};

void tst_SourceGuide::init()
{
    folder = std::make_unique<QTemporaryDir>();
    server = std::make_unique<HttpServer>();
    library = std::make_unique<Library>(folder->filePath(u"library.sqlite"_s), nullptr);
    makeGuides();
    guide = std::make_unique<SourceGuide>(library.get(), nullptr);
}

void tst_SourceGuide::cleanup()
{
    guide.reset();
    library.reset();
    QDir(QFileInfo(Guide::filePath(u"S"_s)).path()).removeRecursively();
}

void tst_SourceGuide::makeGuides()
{
    StoredGuide contents;
    contents.addEntry(one, u"One"_s, uR"(tvg-id="one")"_s);
    contents.addEntry(two, u"Two"_s, uR"(tvg-id="two")"_s);
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    for (const QString &id : {u"one"_s, u"two"_s, u"three"_s}) {
        contents.addChannel(id, id);
        contents.addProgramme(id, now - hour, now + hour, "On "_L1 + id);
    }
    server->on(u"/list.m3u"_s, bodyReply(contents.playlistText()));
    server->on(u"/guide.xml"_s, bodyReply(contents.guideText()));
}

SourceConfig tst_SourceGuide::source(const QString &name) const
{
    SourceConfig config = defaultSourceConfig();
    config.name = name;
    config.url = server->url(u"/list.m3u"_s);
    return config;
}

GuideSettings tst_SourceGuide::settings(bool enabled) const
{
    GuideSettings wanted;
    wanted.enabled = enabled;
    wanted.addresses = server->url(u"/guide.xml"_s);
    return wanted;
}

bool tst_SourceGuide::turnOn()
{
    QSignalSpy updated(guide.get(), &SourceGuide::updated);
    guide->setSource(source());
    guide->setSettings(settings());
    return (updated.count() > 0 || updated.wait(updateMs)) && !guide->isUpdating();
}

QString tst_SourceGuide::running(const QString &entry)
{
    std::optional<QString> title;
    guide->guide()->fetchOnNow({entry}, QDateTime::currentSecsSinceEpoch(),
                               [&](const QHash<QString, OnNow> &answer) {
                                   title = answer.value(entry).now.value_or(GuideProgramme()).title;
                               });
    return QTest::qWaitFor([&] { return title.has_value(); }, updateMs) ? *title : u"no answer"_s;
}

void tst_SourceGuide::nothingUnlessTurnedOn()
{
    const QSignalSpy toldOf(guide.get(), &SourceGuide::updated);
    guide->update(settings());
    guide->cancelUpdate();
    guide->setSource(source());
    guide->setCorrection(channel(one), u"two"_s);
    guide->cancelUpdate();
    QVERIFY(!guide->isUpdating());
    QCOMPARE(toldOf.count(), 0);
    guide->setSource({});
    const QSignalSpy turned(guide.get(), &SourceGuide::turned);
    guide->setSource(source());
    guide->setSettings(settings(false));
    QVERIFY(!guide->isOn());
    QVERIFY(!guide->isUpdating());
    QCOMPARE(turned.count(), 0);
    QCOMPARE(server->requests().size(), 0);
    QVERIFY(!QFileInfo::exists(QFileInfo(Guide::filePath(u"S"_s)).path()));
}

/// Whatever a backup has brought.
void tst_SourceGuide::noSourceHasNoGuide()
{
    GuideSettings nobodys = settings();
    nobodys.source.clear();
    library->setGuideSettings(nobodys);
    QVERIFY(library->guideSettings(QString()).enabled);
    guide->setSource({});
    QVERIFY(!guide->isOn());
}

void tst_SourceGuide::turnedOnAndOff()
{
    const QSignalSpy turned(guide.get(), &SourceGuide::turned);
    QVERIFY(turnOn());
    QVERIFY(guide->isOn());
    QCOMPARE(guide->lastResult().matched, 2);
    QCOMPARE(running(one), u"On one"_s);
    guide->setSettings(settings(false));
    QVERIFY(!guide->isOn());
    guide->setSettings(settings(false));
    QCOMPARE(turned.count(), 2);
    QCOMPARE(turned.first().first().toBool(), true);
    QCOMPARE(turned.last().first().toBool(), false);
    // What was fetched is still there.
    guide->setSettings(settings());
    QCOMPARE(running(one), u"On one"_s);
    QCOMPARE(server->requests().size(), 2);
}

void tst_SourceGuide::noSecondFetchAfterAnUpdate()
{
    QSignalSpy updated(guide.get(), &SourceGuide::updated);
    guide->setSource(source());
    guide->update(settings());
    QVERIFY(updated.wait(updateMs));
    guide->setSettings(settings());
    QCOMPARE(running(one), u"On one"_s);
    QVERIFY(!guide->isUpdating());
    QCOMPARE(server->requests().size(), 2);
    GuideSettings others = settings();
    others.addresses += u"\n"_s + server->url(u"/other.xml"_s);
    guide->setSettings(others);
    QVERIFY(guide->isUpdating());
}

void tst_SourceGuide::refresh_data()
{
    QTest::addColumn<qint64>("age");
    QTest::addColumn<bool>("wanted");
    QTest::addColumn<bool>("problem");
    QTest::addColumn<bool>("refreshed");
    QTest::newRow("fresh") << 11 * hour << true << false << false;
    QTest::newRow("old") << 12 * hour + 1 << true << false << true;
    QTest::newRow("old, but not wanted") << 48 * hour << false << false << false;
    QTest::newRow("failed a while ago") << hour + 1 << true << true << true;
    QTest::newRow("failed just now") << hour / 2 << true << true << false;
    QTest::newRow("clock was set back") << -hour << true << false << true;
}

void tst_SourceGuide::refresh()
{
    QFETCH(qint64, age);
    QFETCH(bool, wanted);
    QFETCH(bool, problem);
    QFETCH(bool, refreshed);
    GuideResult last;
    last.finishedAt = QDateTime::currentSecsSinceEpoch() - age;
    last.addresses.append(
        {u"a"_s, problem ? GuideProblem::NotReachable : GuideProblem::None, {}, 0, false});
    {
        GuideStore store(Guide::filePath(u"S"_s), GuideStore::Mode::Write);
        QVERIFY(store.open() && store.setState(u"result"_s, guideResultToJson(last)));
    }
    GuideSettings kept = settings();
    kept.source = u"S"_s;
    kept.refresh = wanted;
    library->setGuideSettings(kept);
    guide->setSource(source());
    QTRY_VERIFY(guide->lastResult().finishedAt != 0);
    QVERIFY(!guide->isUpdating() || refreshed);
    if (refreshed) {
        QTRY_COMPARE(server->requests().size(), 2);
    }
    QCOMPARE(server->requests().isEmpty(), !refreshed);
}

void tst_SourceGuide::subscriptionWaitsForItsAccount()
{
    GuideSettings kept = settings();
    kept.source = u"S"_s;
    library->setGuideSettings(kept);
    SourceConfig subscription = source();
    subscription.type = SourceType::Zevrino;
    const QString url = std::exchange(subscription.url, {});
    guide->setSource(subscription);
    QCOMPARE(running(one), QString()); // so that the last result is known as well
    QVERIFY(!guide->isUpdating());
    subscription.url = url;
    guide->setSource(subscription);
    QVERIFY(guide->isUpdating());
}

void tst_SourceGuide::offset()
{
    QVERIFY(turnOn());
    GuideSettings shifted = settings();
    shifted.offsetSeconds = 2 * hour;
    const QSignalSpy changed(guide->guide(), &Guide::changed);
    guide->setSettings(shifted);
    QVERIFY(changed.count() > 0);
    QCOMPARE(running(one), QString());
    QCOMPARE(server->requests().size(), 2);
}

void tst_SourceGuide::anotherSource()
{
    const QSignalSpy turned(guide.get(), &SourceGuide::turned);
    QVERIFY(turnOn());
    guide->setSource(source(u"Other"_s));
    QVERIFY(!guide->isOn());
    QCOMPARE(guide->lastResult(), GuideResult());
    guide->setSource(source());
    QVERIFY(guide->isOn());
    QCOMPARE(running(two), u"On two"_s);
    QCOMPARE(turned.count(), 3);
    guide->setSource(source()); // as after each refresh of the catalog
    QCOMPARE(turned.count(), 3);
    QCOMPARE(server->requests().size(), 2);
}

void tst_SourceGuide::correction()
{
    QVERIFY(turnOn());
    QSignalSpy updated(guide.get(), &SourceGuide::updated);
    guide->setCorrection(channel(one), u"two"_s);
    QVERIFY(updated.wait(updateMs));
    QCOMPARE(running(one), u"On two"_s);
    guide->setCorrection(channel(one), {});
    QVERIFY(updated.wait(updateMs));
    QCOMPARE(running(one), QString());
    QCOMPARE(guide->lastResult().matched, 1);
    guide->removeCorrection(channel(one));
    QVERIFY(updated.wait(updateMs));
    QCOMPARE(running(one), u"On one"_s);
    // Nothing was fetched for that, and it outlives an update.
    QCOMPARE(server->requests().size(), 2);
    guide->setCorrection(channel(one), u"two"_s);
    QVERIFY(updated.wait(updateMs));
    guide->update(settings());
    QVERIFY(updated.wait(updateMs));
    QCOMPARE(running(one), u"On two"_s);
}

void tst_SourceGuide::correctionOfAnUnstoredChannel()
{
    QVERIFY(turnOn());
    guide->setCorrection(channel(one), u"three"_s);
    QTRY_COMPARE_WITH_TIMEOUT(server->requests().size(), 4, updateMs);
    QTRY_VERIFY_WITH_TIMEOUT(!guide->isUpdating(), updateMs);
    QCOMPARE(running(one), u"On three"_s);
}

void tst_SourceGuide::correctionWhileAnUpdateRuns()
{
    QVERIFY(turnOn());
    server->on(u"/guide.xml"_s, heldReply());
    guide->update(settings());
    QTRY_COMPARE(server->requestCount(u"/guide.xml"_s), 2);
    makeGuides();
    // It begins again, with the correction.
    guide->setCorrection(channel(one), u"two"_s);
    QTRY_VERIFY_WITH_TIMEOUT(!guide->isUpdating(), updateMs);
    QCOMPARE(server->requestCount(u"/guide.xml"_s), 3);
    QCOMPARE(running(one), u"On two"_s);
}

void tst_SourceGuide::cancelled()
{
    QVERIFY(turnOn());
    server->on(u"/guide.xml"_s, heldReply());
    const QSignalSpy updated(guide.get(), &SourceGuide::updated);
    guide->update(settings());
    QTRY_COMPARE(server->requestCount(u"/guide.xml"_s), 2);
    guide->cancelUpdate();
    QCOMPARE(updated.count(), 1);
    QVERIFY(qvariant_cast<GuideResult>(updated.first().first()).cancelled);
    QVERIFY(!guide->isUpdating());
    QVERIFY(!guide->lastResult().cancelled);
    QCOMPARE(running(one), u"On one"_s);
}

void tst_SourceGuide::renamed()
{
    QVERIFY(turnOn());
    library->renameSource(u"S"_s, u"T"_s);
    guide->moveSource(u"S"_s, u"T"_s);
    guide->setSource(source(u"T"_s));
    QVERIFY(guide->isOn());
    QCOMPARE(running(one), u"On one"_s);
    QVERIFY(!QFile::exists(Guide::filePath(u"S"_s)));
    QCOMPARE(server->requests().size(), 2);
}

void tst_SourceGuide::deleted()
{
    QVERIFY(turnOn());
    const QSignalSpy turned(guide.get(), &SourceGuide::turned);
    library->forgetSource(u"S"_s);
    guide->moveSource(u"S"_s, {});
    guide->setSource(defaultSourceConfig());
    QVERIFY(!guide->isOn());
    QCOMPARE(turned.count(), 1);
    QTRY_VERIFY(!QFile::exists(Guide::filePath(u"S"_s)));
}

VANTIRO_TEST_GUILESS_MAIN(tst_SourceGuide)
#include "tst_SourceGuide.moc"
