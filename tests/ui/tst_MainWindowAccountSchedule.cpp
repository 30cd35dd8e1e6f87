#include "RowMenus.h"
#include "ScheduleWindow.h"
#include "guide/CatchUp.h"
#include "library/Library.h"
#include "ui/EntryTable.h"
#include "ui/ReminderKeeper.h"

#include <QDateTime>

namespace {

constexpr qint64 hour = 3600;

} // namespace

/// Schedules, archives and reminders of an account's channels, in the window. No stream answers.
class tst_MainWindowAccountSchedule : public QObject, private ScheduleWindow
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aReminderOfAnAccountsChannel();
    void anAccountThatDoesNotKnowTheChannel();
    void anAccountThatAnswersAfterTheGuide();
    void theFormThatWorkedIsAskedFirst_data();
    void theFormThatWorkedIsAskedFirst();
    void aClosedScheduleAsksTheAccountNothing();
    void aRecordingBelongsToTheSourceItWasChosenIn();

private:
    /// Opens the account of `provider`, which has the channel "One", with its guide at `addresses`.
    void openAccount(XtreamProvider &provider, const GuideSettings &settings);
    EntryTable &channels() const { return find<EntryTable>(u"liveTable"_s); }
    void openSchedule() const
    {
        QVERIFY(RowMenus::choose(RowMenus::openByMouse(channels(), 0), u"Schedule"_s));
    }
    /// Another source, a playlist with a channel.
    void storePlaylist(const QString &name);

    qint64 now = 0;
    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowAccountSchedule::init()
{
    reset();
    now = QDateTime::currentSecsSinceEpoch();
    server = std::make_unique<HttpServer>();
    server->on(u"/list"_s, bodyReply("#EXTM3U\n#EXTINF:-1,Other\n/other\n"_ba));
    server->onPrefix(u"/"_s, neverAnswers());
}

void tst_MainWindowAccountSchedule::openAccount(XtreamProvider &provider,
                                                const GuideSettings &settings)
{
    XtreamEntry entry;
    entry.name = u"One"_s;
    entry.id = 1;
    entry.guideId = u"one"_s;
    entry.archiveDays = 2;
    entry.archive = [](qint64 /*seconds*/) { return neverAnswers(); };
    provider.add(XtreamAction::liveStreams, entry);
    store(sourceFor(provider, u"A"_s));
    open();
    QTRY_COMPARE(rows(u"liveTable"_s), QStringList{u"One"_s});
    window().selectLiveCategory(find<QListWidget>(u"liveCategoryList"_s).item(0));
    turnOn(settings);
}

void tst_MainWindowAccountSchedule::storePlaylist(const QString &name)
{
    store(playlistSource(name, server->url(u"/list"_s), neverLoaded));
}

/// Its source is another one, and has gone meanwhile or not.
void tst_MainWindowAccountSchedule::aReminderOfAnAccountsChannel()
{
    storePlaylist(u"B"_s);
    storeLastActive(u"A"_s);
    XtreamProvider provider;
    openAccount(provider, {});
    auto *keeper = window().findChild<ReminderKeeper *>();
    LibraryEntry gone{u"Gone"_s, EntryKind::Live, u"1"_s, u"One"_s, {}};
    Q_EMIT keeper->watchRequested(reminderOf(gone, now, now + hour, u"News"_s));
    QVERIFY(!nowPlaying().startsWith("Playing"_L1));
    combo().setCurrentIndex(combo().findText(u"B"_s));
    QTRY_VERIFY(!shownChannels().isEmpty());
    LibraryEntry channel = gone;
    channel.source = u"A"_s;
    Q_EMIT keeper->watchRequested(reminderOf(channel, now, now + hour, u"News"_s));
    QTRY_COMPARE(nowPlaying(), u"Playing: One"_s);
    QCOMPARE(combo().currentText(), u"A"_s);
    // Now it is the active one.
    window().open({server->url(u"/Film.mp4"_s)});
    QVERIFY(nowPlaying() != u"Playing: One"_s);
    Q_EMIT keeper->watchRequested(reminderOf(channel, now, now + hour, u"News"_s));
    QTRY_COMPARE(nowPlaying(), u"Playing: One"_s);
}

void tst_MainWindowAccountSchedule::anAccountThatDoesNotKnowTheChannel()
{
    XtreamProvider provider;
    openAccount(provider, {}); // no guide: the account is asked for the channel alone
    provider.setReply(XtreamAction::fullSchedule, R"({"epg_listings":[]})"_ba);
    openSchedule();
    QTRY_COMPARE(provider.requestCount(XtreamAction::fullSchedule), 1);
    QTRY_VERIFY(repliesUnderWay().isEmpty());
    QCOMPARE(scheduleTitle(), u"Schedule of One"_s);
    // The hours of its archive are still there.
    QTRY_VERIFY(scheduleWidget<QListWidget>(u"scheduleList"_s)->count() > 0);
    // The channel can be watched all the same.
    Q_EMIT schedule()->playRequested();
    QCOMPARE(nowPlaying(), u"Playing: One"_s);
}

/// The guide has told more meanwhile than the account knows.
void tst_MainWindowAccountSchedule::anAccountThatAnswersAfterTheGuide()
{
    XtreamProvider provider;
    openAccount(provider, {});
    provider.setReply(XtreamAction::fullSchedule, R"({"epg_listings":[]})"_ba);
    provider.setManner(XtreamAction::fullSchedule, XtreamProvider::Manner::Held);
    openSchedule();
    QTRY_COMPARE(provider.requestCount(XtreamAction::fullSchedule), 1);
    const auto programmes = [this] {
        const auto &list = *scheduleWidget<QListWidget>(u"scheduleList"_s);
        QStringList texts;
        for (int row = 0; row < list.count(); ++row) {
            texts << list.item(row)->text();
        }
        return texts;
    };
    QTRY_VERIFY(!programmes().isEmpty());
    const QStringList hours = programmes();
    GuideSettings settings;
    settings.addresses = accountGuideAddress.toString();
    turnOn(settings);
    QTRY_VERIFY(programmes() != hours);
    const QStringList told = programmes();
    provider.release(XtreamAction::fullSchedule);
    QTRY_VERIFY(repliesUnderWay().isEmpty());
    QCOMPARE(programmes(), told);
}

void tst_MainWindowAccountSchedule::theFormThatWorkedIsAskedFirst_data()
{
    QTest::addColumn<int>("form"); ///< -1 for none
    QTest::addColumn<QString>("path");
    QTest::newRow("none as yet") << -1 << u"/timeshift/"_s;
    QTest::newRow("the query") << static_cast<int>(AccountArchiveForm::Query)
                               << u"/streaming/timeshift.php"_s;
}

void tst_MainWindowAccountSchedule::theFormThatWorkedIsAskedFirst()
{
    QFETCH(const int, form);
    QFETCH(const QString, path);
    XtreamProvider provider;
    GuideSettings settings;
    settings.addresses = accountGuideAddress.toString();
    settings.archiveForm = form;
    openAccount(provider, settings);
    QTRY_VERIFY(!channels().item(0, 0)->data(Qt::AccessibleDescriptionRole).toString().isEmpty());
    provider.http().clearRequests();
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(channels(), 0), u"Watch from Start"_s));
    const auto firstPath = [&] {
        for (const HttpRequest &request : provider.http().requests()) {
            if (request.path.contains("timeshift"_L1)) {
                return request.path;
            }
        }
        return QString();
    };
    QTRY_VERIFY(!firstPath().isEmpty());
    QVERIFY2(firstPath().startsWith(path), qPrintable(firstPath()));
}

void tst_MainWindowAccountSchedule::aClosedScheduleAsksTheAccountNothing()
{
    XtreamProvider provider;
    openAccount(provider, {}); // no guide: the account is asked for the channel alone
    provider.setManner(XtreamAction::login, XtreamProvider::Manner::Held);
    const int before = provider.requestCount(XtreamAction::login);
    openSchedule();
    QTRY_VERIFY(provider.requestCount(XtreamAction::login) > before); // for the server's zone
    schedule()->close();
    QTRY_COMPARE(scheduleTitle(), QString());
    provider.release(XtreamAction::login);
    QTRY_VERIFY(repliesUnderWay().isEmpty());
    QCOMPARE(provider.requestCount(XtreamAction::fullSchedule), 0);
}

/// Its server tells the zone when another source is shown.
void tst_MainWindowAccountSchedule::aRecordingBelongsToTheSourceItWasChosenIn()
{
    storePlaylist(u"B"_s);
    storeLastActive(u"A"_s);
    XtreamProvider provider;
    GuideSettings settings;
    settings.addresses = accountGuideAddress.toString();
    openAccount(provider, settings);
    QTRY_VERIFY(!channels().item(0, 0)->data(Qt::AccessibleDescriptionRole).toString().isEmpty());
    provider.setManner(XtreamAction::login, XtreamProvider::Manner::Held);
    const int before = provider.requestCount(XtreamAction::login);
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(channels(), 0), u"Watch from Start"_s));
    QTRY_VERIFY(provider.requestCount(XtreamAction::login) > before);
    combo().setCurrentIndex(combo().findText(u"B"_s));
    QTRY_VERIFY(!shownChannels().isEmpty());
    provider.release(XtreamAction::login);
    QTRY_VERIFY(nowPlaying().startsWith("Playing: One - "_L1));
    QTest::keyClick(&window(), Qt::Key_D, Qt::ControlModifier);
    const auto *library = window().findChild<Library *>();
    QCOMPARE(library->favorites(u"A"_s, EntryKind::Live).keys(), QStringList{u"1"_s});
}

VANTIRO_TEST_MAIN(tst_MainWindowAccountSchedule)
#include "tst_MainWindowAccountSchedule.moc"
