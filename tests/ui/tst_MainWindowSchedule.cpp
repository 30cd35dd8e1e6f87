#include "RowMenus.h"
#include "ScheduleWindow.h"
#include "guide/StoredGuide.h"
#include "library/Library.h"
#include "ui/EntryTable.h"
#include "ui/GuideGrid.h"
#include "ui/PlayerPanel.h"
#include "ui/ReminderKeeper.h"

#include <QAction>
#include <QDateTime>
#include <QPointer>

#include <algorithm>

namespace {

constexpr qint64 hour = 3600;
const QString archive = uR"( catchup="shift" catchup-days="2")"_s;
const QString noProgrammes = u"The guide has no programmes of this channel."_s;

} // namespace

/// Schedules, archives and reminders in the window. The playlist has, by their names: "One" and
/// "Two" with an archive, "Plain" without one, "Odd", the rules of whose archive do not fit its
/// address, and "Unknown", of which the guide has nothing. No stream answers.
class tst_MainWindowSchedule : public QObject, private ScheduleWindow
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aFoundProgrammeShowsInItsSchedule();
    void aProgrammeOfTheGridShowsInItsSchedule_data();
    void aProgrammeOfTheGridShowsInItsSchedule();
    void aProgrammeOfTheGridPlaysFromTheArchive();
    void watchingFromTheSchedule();
    void aReminderFromTheSchedule();
    void onlyAChannelOfTheSourceHasASchedule();
    void oneScheduleAtATime();
    void closesWithTheGuide();
    void aChannelThatIsGone();
    void anArchiveWithoutAnAddress();
    void aChannelThatTheGuideDoesNotKnow();
    void onlyAnArchiveIsWatchedFromTheStart();

private:
    /// Opens the playlist with its guide.
    void openPlaylist();
    /// Opens the guide in place of the channels, and waits for what runs.
    GuideGrid &openGrid() const;
    /// What is current in the grid; empty while it is not known.
    static QString titleIn(const GuideGrid &grid)
    {
        const std::optional<GuideProgramme> programme = grid.currentProgramme();
        return programme ? programme->title : QString();
    }
    void openSchedule(int row) const;
    /// What the schedule shows as current; empty without one.
    QString currentProgramme() const
    {
        const auto *list = scheduleWidget<QListWidget>(u"scheduleList"_s);
        return list != nullptr && list->currentItem() != nullptr
                   ? list->currentItem()->text().section(u"  "_s, 1)
                   : QString();
    }
    QAbstractButton &scheduleButton(const QString &name) const
    {
        return *scheduleWidget<QAbstractButton>(name);
    }
    /// Whether the server was asked for a stream that begins like this.
    bool isAskedFor(const QString &target) const
    {
        const QList<HttpRequest> requests = server->requests();
        return std::any_of(requests.cbegin(), requests.cend(), [&](const HttpRequest &request) {
            return request.target.startsWith(target);
        });
    }
    QString utc(qint64 hours) const { return QString::number(now + hours * hour); }
    EntryTable &table() const { return find<EntryTable>(u"channelTable"_s); }
    QString description(int row) const
    {
        return table().item(row, 0)->data(Qt::AccessibleDescriptionRole).toString();
    }
    Library &library() const { return *window().findChild<Library *>(); }

    qint64 now = 0;
    std::unique_ptr<HttpServer> server;
    std::unique_ptr<StoredGuide> contents;
};

void tst_MainWindowSchedule::init()
{
    reset();
    server = std::make_unique<HttpServer>();
    contents = std::make_unique<StoredGuide>();
    now = QDateTime::currentSecsSinceEpoch();
    const QHash<QString, QString> archives{
        {u"One"_s, archive}, {u"Two"_s, archive}, {u"Odd"_s, uR"( catchup="xc")"_s}};
    for (const QString &name : {u"Odd"_s, u"One"_s, u"Plain"_s, u"Two"_s}) {
        contents->addEntry(server->url(u"/"_s + name), name,
                           u"tvg-id=\"%1\""_s.arg(name) + archives.value(name));
        contents->addChannel(name, name);
        contents->addProgramme(name, now - 3 * hour, now - hour, u"Old of "_s + name);
        contents->addProgramme(name, now - hour, now + hour, u"News of "_s + name);
        contents->addProgramme(name, now + hour, now + 2 * hour, u"Film of "_s + name);
        contents->addProgramme(name, now + 30 * hour, now + 31 * hour, u"Match of "_s + name);
    }
    contents->addEntry(server->url(u"/Unknown"_s), u"Unknown"_s);
    server->on(u"/list"_s, bodyReply(contents->playlistText()));
    server->on(u"/guide.xml"_s, bodyReply(contents->guideText()));
    server->onPrefix(u"/"_s, neverAnswers());
}

void tst_MainWindowSchedule::openPlaylist()
{
    store(playlistSource(u"A"_s, server->url(u"/list"_s), neverLoaded));
    open();
    QTRY_COMPARE(shownChannels(),
                 (QStringList{u"Odd"_s, u"One"_s, u"Plain"_s, u"Two"_s, u"Unknown"_s}));
    window().selectChannelCategory(find<QListWidget>(u"channelCategoryList"_s).item(0));
    GuideSettings settings;
    settings.addresses = server->url(u"/guide.xml"_s);
    turnOn(settings);
    QTRY_VERIFY(!description(1).isEmpty());
}

GuideGrid &tst_MainWindowSchedule::openGrid() const
{
    find<QAbstractButton>(u"channelGuideButton"_s).click();
    auto &grid = *find<QWidget>(u"channelTab"_s).findChild<GuideGrid *>();
    [&] { QTRY_VERIFY(grid.currentProgramme()); }();
    grid.setFocus();
    return grid;
}

void tst_MainWindowSchedule::openSchedule(int row) const
{
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(table(), row), u"Schedule"_s));
    QTRY_COMPARE(scheduleTitle(), u"Schedule of "_s + shownChannels().at(row));
}

void tst_MainWindowSchedule::aFoundProgrammeShowsInItsSchedule()
{
    openPlaylist();
    openGrid();
    auto &field = *find<QWidget>(u"channelTab"_s).findChild<QLineEdit *>(u"guideSearch"_s);
    const auto &list =
        *find<QWidget>(u"channelTab"_s).findChild<QTableWidget *>(u"guideSearchList"_s);
    field.setText(u"match of two"_s);
    QTRY_COMPARE(list.rowCount(), 1);
    QTest::keyClick(&field, Qt::Key_Return);
    QTRY_COMPARE(currentProgramme(), u"Match of Two"_s);
    QCOMPARE(scheduleTitle(), u"Schedule of Two"_s);
    // It is not today.
    QCOMPARE(scheduleWidget<QComboBox>(u"dayBox"_s)->currentData().toDate(),
             QDateTime::fromSecsSinceEpoch(now + 30 * hour).date());
}

void tst_MainWindowSchedule::aProgrammeOfTheGridShowsInItsSchedule_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<Qt::Key>("key"); ///< leads to it from what runs
    QTest::addColumn<QString>("programme");
    QTest::newRow("to come") << 1 << Qt::Key_Right << u"Film of One"_s;
    QTest::newRow("over, without an archive") << 2 << Qt::Key_Left << u"Old of Plain"_s;
}

void tst_MainWindowSchedule::aProgrammeOfTheGridShowsInItsSchedule()
{
    QFETCH(const int, row);
    QFETCH(const Qt::Key, key);
    QFETCH(const QString, programme);
    openPlaylist();
    GuideGrid &grid = openGrid();
    grid.setCurrentRow(row);
    QTRY_VERIFY(titleIn(grid).startsWith("News"_L1));
    QTest::keyClick(&grid, key);
    QTRY_COMPARE(titleIn(grid), programme);
    QTest::keyClick(&grid, Qt::Key_Return);
    QTRY_COMPARE(currentProgramme(), programme);
    QCOMPARE(nowPlaying(), u"Nothing playing"_s);
}

void tst_MainWindowSchedule::aProgrammeOfTheGridPlaysFromTheArchive()
{
    openPlaylist();
    GuideGrid &grid = openGrid();
    grid.setCurrentRow(1);
    QTRY_COMPARE(titleIn(grid), u"News of One"_s);
    QTest::keyClick(&grid, Qt::Key_Left);
    QTRY_COMPARE(titleIn(grid), u"Old of One"_s);
    QTest::keyClick(&grid, Qt::Key_Return);
    QTRY_COMPARE(nowPlaying(), u"Playing: One - Old of One"_s);
    QTRY_VERIFY(isAskedFor(u"/One?utc="_s + utc(-3)));
    QCOMPARE(scheduleTitle(), QString());
}

void tst_MainWindowSchedule::watchingFromTheSchedule()
{
    openPlaylist();
    openSchedule(1);
    QTRY_COMPARE(currentProgramme(), u"News of One"_s);
    scheduleButton(u"playChannelButton"_s).click();
    QCOMPARE(nowPlaying(), u"Playing: One"_s);
    scheduleButton(u"archiveButton"_s).click();
    QCOMPARE(nowPlaying(), u"Playing: One - News of One"_s);
    QTRY_VERIFY(isAskedFor(u"/One?utc="_s + utc(-1)));
    // The player leads back to the schedule of what it plays, from the archive as well.
    schedule()->close();
    QTRY_COMPARE(scheduleTitle(), QString());
    Q_EMIT window().findChild<PlayerPanel *>()->scheduleRequested();
    QTRY_COMPARE(scheduleTitle(), u"Schedule of One"_s);
}

void tst_MainWindowSchedule::aReminderFromTheSchedule()
{
    openPlaylist();
    openSchedule(1);
    QTRY_COMPARE(currentProgramme(), u"News of One"_s);
    auto &list = *scheduleWidget<QListWidget>(u"scheduleList"_s);
    // The film may be tomorrow's.
    auto &days = *scheduleWidget<QComboBox>(u"dayBox"_s);
    days.setCurrentIndex(days.findData(QDateTime::fromSecsSinceEpoch(now + hour).date()));
    while (currentProgramme() != u"Film of One"_s && list.currentRow() + 1 < list.count()) {
        list.setCurrentRow(list.currentRow() + 1);
    }
    QAbstractButton &button = scheduleButton(u"reminderButton"_s);
    QCOMPARE(button.text(), u"Remind Me"_s);
    button.click();
    QCOMPARE(library().reminders().size(), 1);
    QCOMPARE(library().reminders().constFirst().start, now + hour);
    QCOMPARE(button.text(), u"Remove Reminder"_s);
    button.click();
    QVERIFY(library().reminders().isEmpty());
    QCOMPARE(button.text(), u"Remind Me"_s);
}

void tst_MainWindowSchedule::onlyAChannelOfTheSourceHasASchedule()
{
    openPlaylist();
    auto &panel = *window().findChild<PlayerPanel *>();
    const auto asksInVain = [this, &panel] {
        Q_EMIT panel.scheduleRequested();
        return scheduleTitle().isEmpty();
    };
    QVERIFY2(asksInVain(), "nothing plays");
    for (const QString &opened : {u"/Film.mp4"_s, u"/opened.ts"_s}) {
        window().open({server->url(opened)});
        QVERIFY(nowPlaying().startsWith("Playing: "_L1));
        QVERIFY2(asksInVain(), qPrintable(opened));
    }
    window().playChannelRow(0, 0);
    Q_EMIT panel.scheduleRequested();
    QTRY_COMPARE(scheduleTitle(), u"Schedule of "_s + shownChannels().at(0));
    sourceGuide().setSettings({});
    QTRY_COMPARE(scheduleTitle(), QString());
    QVERIFY2(asksInVain(), "there is no guide");
}

void tst_MainWindowSchedule::oneScheduleAtATime()
{
    openPlaylist();
    openSchedule(1);
    const QPointer<ScheduleDialog> first = schedule();
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(table(), 3), u"Schedule"_s));
    QTRY_VERIFY(first.isNull());
    QCOMPARE(scheduleTitle(), u"Schedule of Two"_s);
}

void tst_MainWindowSchedule::closesWithTheGuide()
{
    openPlaylist();
    openSchedule(1);
    sourceGuide().setSettings({});
    QTRY_COMPARE(scheduleTitle(), QString());
}

/// It plays all the same, in no list.
void tst_MainWindowSchedule::aChannelThatIsGone()
{
    openPlaylist();
    openSchedule(3);
    QTRY_COMPARE(currentProgramme(), u"News of Two"_s);
    server->on(u"/list"_s, bodyReply(contents->playlistText()
                                         .replace(",Two", ",Three")
                                         .replace(server->url(u"/Two"_s).toUtf8(),
                                                  server->url(u"/3"_s).toUtf8())));
    window().refreshActiveSource();
    QTRY_VERIFY(shownChannels().contains(u"Three"_s));
    QCOMPARE(currentProgramme(), u"News of Two"_s);
    const QList<QAction *> commands = window().findChild<PlayerPanel *>()->actions();
    QAction &next = **std::find_if(commands.cbegin(), commands.cend(),
                                   [](const QAction *one) { return one->text() == "Next"_L1; });
    const QList<std::pair<QString, QString>> ways{
        {u"playChannelButton"_s, u"Playing: Two"_s},
        {u"archiveButton"_s, u"Playing: Two - News of Two"_s}};
    for (const auto &[button, title] : ways) {
        window().playChannelRow(0, 0);
        next.trigger();
        QCOMPARE(nowPlaying(), u"Playing: One"_s);
        scheduleButton(button).click();
        QCOMPARE(nowPlaying(), title);
        next.trigger();
        QCOMPARE(nowPlaying(), title);
    }
}

void tst_MainWindowSchedule::anArchiveWithoutAnAddress()
{
    openPlaylist();
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(table(), 0), u"Watch from Start"_s));
    QTRY_COMPARE(dialogs.seen().size(), 1);
    QCOMPARE(dialogs.seen().constFirst().title, u"Playback Error"_s);
    QCOMPARE(dialogs.seen().constFirst().text,
             u"The archive does not tell how to play this programme."_s);
    QCOMPARE(nowPlaying(), u"Nothing playing"_s);
}

void tst_MainWindowSchedule::aChannelThatTheGuideDoesNotKnow()
{
    openPlaylist();
    const qsizetype before = server->requests().size();
    openSchedule(4);
    QTRY_COMPARE(scheduleWidget<QLabel>(u"scheduleMessage"_s)->text(), noProgrammes);
    // Only an account can be asked for more.
    QVERIFY(repliesUnderWay().isEmpty());
    QCOMPARE(server->requests().size(), before);
}

/// Of the running programme, in the channel's menu.
void tst_MainWindowSchedule::onlyAnArchiveIsWatchedFromTheStart()
{
    openPlaylist();
    for (const auto &[row, hasArchive] : {std::pair(1, true), std::pair(2, false)}) {
        QMenu *menu = RowMenus::openByMouse(table(), row);
        const QStringList texts = RowMenus::texts(menu);
        menu->close();
        QVERIFY(texts.contains(u"Schedule"_s));
        QCOMPARE(texts.contains(u"Watch from Start"_s), hasArchive);
    }
}

VANTIRO_TEST_MAIN(tst_MainWindowSchedule)
#include "tst_MainWindowSchedule.moc"
