#include "RowMenus.h"
#include "WindowFixture.h"
#include "benchmarks/HoldMeter.h"
#include "fakeprovider/CatalogGenerator.h"
#include "fakeprovider/Gzip.h"
#include "fakeprovider/XtreamProvider.h"
#include "guide/Guide.h"
#include "guide/StoredGuide.h"
#include "library/Library.h"
#include "ui/EntryTable.h"
#include "ui/SourceGuide.h"

#include <QCheckBox>
#include <QDateTime>
#include <QMessageBox>
#include <QNetworkReply>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalSpy>

namespace {

constexpr qint64 hour = 3600;

/// What this process has written to memory, in bytes.
qint64 writtenMemory()
{
    const QList<QByteArray> lines = readFile(u"/proc/self/smaps_rollup"_s).split('\n');
    qint64 kilobytes = 0;
    for (const QByteArray &line : lines) {
        if (line.startsWith("Private_Dirty:")) {
            kilobytes = line.simplified().split(' ').at(1).toLongLong();
        }
    }
    return kilobytes * 1024;
}

} // namespace

/// The programme guide in the window: turning it on, and what the lists and the menus show then.
class tst_MainWindowGuide : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void turnedOnInTheDialog();
    void aCancelledDialogTurnsNothingOn();
    void nothingInTheMenuUnlessTurnedOn();
    void anotherChannelOfTheGuide();
    void anotherSourceBecomesActiveBeneath();
    void theGuideIsBesideTheSearch();
    void scheduleFromTheAccount();
    void reminderOfAnotherSource();
    void whileALargeGuideComes();

private:
    void openPlaylist();
    void turnOn(const QString &addresses);
    void choose(const QString &line);
    EntryTable &table() const { return find<EntryTable>(u"channelTable"_s); }
    QString description(int row) const
    {
        return table().item(row, 0)->data(Qt::AccessibleDescriptionRole).toString();
    }
    SourceGuide &sourceGuide() const { return *window().findChild<SourceGuide *>(); }
    QStringList menuOf(int row)
    {
        QStringList lines;
        QMenu *menu = RowMenus::openByMouse(table(), row);
        for (const QAction *action : menu->actions()) {
            lines << action->text();
        }
        menu->close();
        return lines;
    }

    std::unique_ptr<HttpServer> server;
    std::unique_ptr<StoredGuide> contents;
};

void tst_MainWindowGuide::init()
{
    reset();
    server = std::make_unique<HttpServer>();
    contents = std::make_unique<StoredGuide>();
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    for (const QString &name : {u"One"_s, u"Two"_s}) {
        contents->addEntry(server->url(u"/"_s + name), name,
                           uR"(tvg-id="%1" catchup="shift" catchup-days="2")"_s.arg(name));
        contents->addChannel(name, name);
        contents->addProgramme(name, now - hour, now + hour, u"News of "_s + name);
        contents->addProgramme(name, now + hour, now + 2 * hour, u"Film of "_s + name);
    }
    QByteArray list = contents->playlistText();
    list.replace("#EXTM3U", "#EXTM3U x-tvg-url=\"" + server->url(u"/guide.xml"_s).toUtf8() + '"');
    server->on(u"/list"_s, bodyReply(list));
    server->on(u"/guide.xml"_s, bodyReply(packedWithGzip(contents->guideText())));
    server->onPrefix(u"/"_s, neverAnswers());
}

void tst_MainWindowGuide::openPlaylist()
{
    store(playlistSource(u"A"_s, server->url(u"/list"_s), neverLoaded));
    open();
    [&] { QTRY_COMPARE(shownChannels().size(), 2); }();
    window().selectChannelCategory(find<QListWidget>(u"channelCategoryList"_s).item(0));
}

void tst_MainWindowGuide::turnOn(const QString &addresses)
{
    GuideSettings settings;
    settings.enabled = true;
    settings.addresses = addresses;
    sourceGuide().setSettings(settings);
    [&] { QTRY_VERIFY_WITH_TIMEOUT(!sourceGuide().isUpdating(), 60'000); }();
}

void tst_MainWindowGuide::choose(const QString &line)
{
    dialogs.nextMenu([line](QMenu &menu) {
        for (QAction *action : menu.actions()) {
            if (action->text().remove(u'&') == line) {
                action->trigger();
            }
        }
    });
    button(u"More"_s).click();
}

void tst_MainWindowGuide::turnedOnInTheDialog()
{
    openPlaylist();
    QCOMPARE(server->requestCount(u"/guide.xml"_s), 0);
    dialogs.next([this](QDialog &dialog) {
        dialog.findChild<QCheckBox *>(u"guideEnabled"_s)->setChecked(true);
        auto &addresses = *dialog.findChild<QListWidget *>(u"guideAddresses"_s);
        // The one that the playlist names is offered.
        QTRY_COMPARE(addresses.count(), 1);
        QCOMPARE(addresses.item(0)->text(), server->url(u"/guide.xml"_s));
        QVERIFY(DialogAnswers::click(dialog, u"OK"_s));
    });
    choose(u"Programme Guide..."_s);
    QCOMPARE(dialogs.seen().last().title, u"Programme Guide"_s);
    QTRY_VERIFY(description(0).endsWith(" News of One"_L1));
    QVERIFY(description(1).endsWith(" News of Two"_L1));
    QCOMPARE(server->requestCount(u"/guide.xml"_s), 1);
}

/// And one whose playlist cannot be fetched any more offers no address.
void tst_MainWindowGuide::aCancelledDialogTurnsNothingOn()
{
    openPlaylist();
    const int before = server->requestCount(u"/list"_s);
    server->on(u"/list"_s, statusReply(404));
    dialogs.next([this, before](QDialog &dialog) {
        dialog.findChild<QCheckBox *>(u"guideEnabled"_s)->setChecked(true);
        QTRY_VERIFY(server->requestCount(u"/list"_s) > before);
        QTRY_VERIFY(dialog.findChildren<QNetworkReply *>().isEmpty());
        QCOMPARE(dialog.findChild<QListWidget *>(u"guideAddresses"_s)->count(), 0);
        QVERIFY(DialogAnswers::click(dialog, u"Cancel"_s));
    });
    choose(u"Programme Guide..."_s);
    QCOMPARE(dialogs.seen().size(), 1);
    QVERIFY(!sourceGuide().isOn());
    QCOMPARE(server->requestCount(u"/guide.xml"_s), 0);
}

void tst_MainWindowGuide::nothingInTheMenuUnlessTurnedOn()
{
    openPlaylist();
    QVERIFY(!menuOf(0).contains(u"Schedule"_s));
    turnOn(server->url(u"/guide.xml"_s));
    QTRY_VERIFY(!description(0).isEmpty());
    QCOMPARE(menuOf(0).last(3),
             (QStringList{u"Watch from Start"_s, u"Schedule"_s, u"Guide Channel..."_s}));
    sourceGuide().setSettings({});
    QVERIFY(!menuOf(0).contains(u"Schedule"_s));
}

void tst_MainWindowGuide::anotherChannelOfTheGuide()
{
    openPlaylist();
    turnOn(server->url(u"/guide.xml"_s));
    QTRY_VERIFY(!description(0).isEmpty());
    const auto answer = [this](const QString &choice, const QString &button) {
        bool isAnswered = false;
        dialogs.next([&](QDialog &dialog) {
            dialog.findChild<QRadioButton *>(choice)->click();
            isAnswered = DialogAnswers::click(dialog, button);
        });
        QVERIFY(RowMenus::choose(RowMenus::openByMouse(table(), 0), u"Guide Channel..."_s));
        QTRY_VERIFY(isAnswered);
    };
    answer(u"noGuide"_s, u"OK"_s);
    QTRY_COMPARE(description(0), QString());
    QVERIFY(!description(1).isEmpty());
    const auto corrections = [this] {
        return window().findChild<Library *>()->guideCorrections(u"A"_s, EntryKind::Channel).size();
    };
    answer(u"automaticGuide"_s, u"Cancel"_s);
    QCOMPARE(corrections(), 1);
    answer(u"automaticGuide"_s, u"OK"_s);
    QTRY_VERIFY(description(0).endsWith(" News of One"_L1));
    QCOMPARE(corrections(), 0);
    // What is so already is not stored again.
    const QSignalSpy changes(window().findChild<Library *>(), &Library::changed);
    answer(u"automaticGuide"_s, u"OK"_s);
    QCOMPARE(changes.count(), 0);
}

/// A form is about the source that it was opened for.
void tst_MainWindowGuide::anotherSourceBecomesActiveBeneath()
{
    server->on(u"/other"_s, bodyReply("#EXTM3U\n#EXTINF:-1,Elsewhere\n" +
                                      server->url(u"/elsewhere"_s).toUtf8() + '\n'));
    store(playlistSource(u"B"_s, server->url(u"/other"_s), neverLoaded));
    storeLastActive(u"A"_s);
    openPlaylist();
    turnOn(server->url(u"/guide.xml"_s));
    QTRY_VERIFY(!description(0).isEmpty());
    const Library &library = *window().findChild<Library *>();
    const auto select = [this](const QString &source, const QString &channel) {
        combo().setCurrentIndex(combo().findText(source));
        QTRY_COMPARE(shownChannels().value(0), channel);
    };
    bool isAnswered = false;
    dialogs.next([&](QDialog &dialog) {
        select(u"B"_s, u"Elsewhere"_s);
        dialog.findChild<QRadioButton *>(u"noGuide"_s)->click();
        isAnswered = DialogAnswers::click(dialog, u"OK"_s);
    });
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(table(), 0), u"Guide Channel..."_s));
    QTRY_VERIFY(isAnswered);
    for (const QString &source : {u"A"_s, u"B"_s})
        QVERIFY(library.guideCorrections(source, EntryKind::Channel).isEmpty());

    select(u"A"_s, u"One"_s);
    dialogs.next([&](QDialog &dialog) {
        select(u"B"_s, u"Elsewhere"_s);
        dialog.findChild<QCheckBox *>(u"guideEnabled"_s)->setChecked(true);
        QVERIFY(DialogAnswers::click(dialog, u"OK"_s));
    });
    choose(u"Programme Guide..."_s);
    QVERIFY(!library.guideSettings(u"B"_s).enabled);
    QVERIFY(library.guideSettings(u"A"_s).enabled);
}

void tst_MainWindowGuide::theGuideIsBesideTheSearch()
{
    openPlaylist();
    QVERIFY(window().findChild<QAbstractButton *>(u"channelGuideButton"_s) == nullptr);
    turnOn(server->url(u"/guide.xml"_s));
    auto &guideButton = find<QAbstractButton>(u"channelGuideButton"_s);
    QTRY_VERIFY(guideButton.isVisible());
    guideButton.click();
    const auto &guideView = *find<QWidget>(u"channelTab"_s).findChild<QWidget *>(u"guideView"_s);
    QVERIFY(guideView.isVisible());
    QVERIFY(!table().isVisible());
    sourceGuide().setSettings({});
    QVERIFY(!guideButton.isVisible());
    QVERIFY(!guideView.isVisible());
    QVERIFY(table().isVisible());
}

void tst_MainWindowGuide::scheduleFromTheAccount()
{
    XtreamProvider provider;
    XtreamEntry entry;
    entry.name = u"One"_s;
    entry.id = 1;
    entry.guideId = u"one"_s;
    provider.add(XtreamAction::liveStreams, entry);
    SourceConfig account = defaultSourceConfig();
    account.type = SourceType::Xtream;
    account.name = u"A"_s;
    account.url = provider.url();
    account.username = provider.user();
    account.password = provider.password();
    store(account);
    open();
    QTRY_COMPARE(rows(u"liveTable"_s), QStringList{u"One"_s});
    window().selectLiveCategory(find<QListWidget>(u"liveCategoryList"_s).item(0));
    turnOn({}); // no guide: the account is asked for the channel alone
    QCOMPARE(provider.requestCount(XtreamAction::fullSchedule), 0);
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(find<QTableWidget>(u"liveTable"_s), 0),
                             u"Schedule"_s));
    QTRY_VERIFY(find<QListWidget>(u"scheduleList"_s).count() > 5);
    QCOMPARE(provider.requestCount(XtreamAction::fullSchedule), 1);
    QCOMPARE(provider.http().requestCount(u"/xmltv.php"_s), 0);
}

void tst_MainWindowGuide::reminderOfAnotherSource()
{
    server->on(u"/other"_s, bodyReply("#EXTM3U\n#EXTINF:-1,Elsewhere\n" +
                                      server->url(u"/elsewhere"_s).toUtf8() + '\n'));
    store(playlistSource(u"B"_s, server->url(u"/other"_s), neverLoaded));
    storeLastActive(u"A"_s);
    openPlaylist();
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    Library &library = *window().findChild<Library *>();
    library.addReminder(
        reminderOf({u"B"_s, EntryKind::Channel, server->url(u"/elsewhere"_s), u"Elsewhere"_s, {}},
                   now - 1, now + hour, u"Match"_s));
    QMessageBox *message = nullptr;
    const auto findMessage = [&message] {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *shown : windows) {
            if (auto *box = qobject_cast<QMessageBox *>(shown); box != nullptr) {
                message = box;
            }
        }
        return message != nullptr;
    };
    QTRY_VERIFY(findMessage());
    QVERIFY(message->text().contains("Match"_L1));
    buttonOf(*message, u"Watch"_s)->click();
    QTRY_COMPARE(nowPlaying(), u"Playing: Elsewhere"_s);
    QCOMPARE(combo().currentText(), u"B"_s);
    QVERIFY(library.reminders().isEmpty());
}

void tst_MainWindowGuide::whileALargeGuideComes()
{
    constexpr int channels = 3000;
    constexpr qint64 mostMemory = 80LL * 1024 * 1024;
    constexpr double longestHoldMs = 50;
    CatalogGenerator generator;
    const QByteArray list = generator.playlist(45'000, 50, server->url(u"/live/"_s));
    const QByteArray large = packedWithGzip(
        generator.guide(channels, 110, QDateTime::currentSecsSinceEpoch() - 24 * hour));
    server->on(u"/list"_s, bodyReply(list));
    server->on(u"/guide.xml"_s, bodyReply(large));
    store(playlistSource(u"A"_s, server->url(u"/list"_s), neverLoaded));
    open();
    QTRY_COMPARE_WITH_TIMEOUT(table().rowCount(), 45'000, 20'000);
    window().selectChannelCategory(find<QListWidget>(u"channelCategoryList"_s).item(0));
    const qint64 before = writtenMemory();
    qint64 most = before;
    GuideSettings settings;
    settings.enabled = true;
    settings.addresses = server->url(u"/guide.xml"_s);
    sourceGuide().setSettings(settings);
    HoldMeter::restart();
    // Meanwhile the list is scrolled. Memory is looked at seldom, since that takes time as well.
    QTimer scroll;
    QTimer look;
    QScrollBar &bar = *table().verticalScrollBar();
    connect(&scroll, &QTimer::timeout, this,
            [&bar] { bar.setValue((bar.value() + 7) % bar.maximum()); });
    connect(&look, &QTimer::timeout, this, [&] { most = std::max(most, writtenMemory()); });
    scroll.start(20);
    look.start(200);
    QTRY_VERIFY_WITH_TIMEOUT(!sourceGuide().isUpdating(), 120'000);
    const HoldMeter::Hold hold = HoldMeter::longest();
    scroll.stop();
    QVERIFY(sourceGuide().lastResult().matched >= channels);
    QVERIFY(sourceGuide().lastResult().programmes > 200'000);
    qInfo("held for %.1f ms, CPU %.1f ms; %.1f MB more memory", hold.wallMs, hold.cpuMs,
          double(most - before) / (1024 * 1024));
    // The thread's own time: other programs count for nothing.
    QVERIFY2(hold.cpuMs < longestHoldMs, qPrintable(QString::number(hold.cpuMs)));
    QVERIFY2(most - before < mostMemory, qPrintable(QString::number(most - before)));
    bar.setValue(0);
    QTRY_VERIFY(!description(0).isEmpty());
}

VANTIRO_TEST_MAIN(tst_MainWindowGuide)
#include "tst_MainWindowGuide.moc"
