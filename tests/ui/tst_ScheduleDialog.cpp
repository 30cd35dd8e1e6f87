// The window with a channel's schedule, on a stored guide.

#include "../guide/StoredGuide.h"
#include "guide/Guide.h"
#include "support/TestMain.h"
#include "ui/GuideTexts.h"
#include "ui/ScheduleDialog.h"

#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 day = 24LL * 60 * 60;
const QColor bellColor(0xf5c518); ///< of a reminder

/// A minute in seconds; a shorter one near midnight, so that half an hour before and after now is
/// today; 0 in the last and the first half minute of a day.
qint64 shownMinute()
{
    constexpr qint64 halfHour = 30;
    const QDateTime now = QDateTime::currentDateTime();
    const qint64 fromMidnight = now.date().startOfDay().secsTo(now);
    const qint64 toMidnight = now.secsTo(now.date().addDays(1).startOfDay());
    return std::min<qint64>(std::min(fromMidnight, toMidnight) / (halfHour + 5), 60);
}

qint64 minute = 0; ///< of this run

const QString address = u"http://127.0.0.1/one"_s;
const QString archive = uR"( catchup="append" catchup-source="?utc={utc}" catchup-days="2")"_s;

/// A guide around the present, and the window of a channel of it.
struct Viewer
{
    void addProgrammes()
    {
        add(-day, -day + 30 * minute, u"Yesterday"_s);
        add(-20 * minute, -10 * minute, u"Before"_s);
        add(-10 * minute, 10 * minute, u"Now"_s);
        add(10 * minute, 20 * minute, u"Next"_s);
        add(day, day + 30 * minute, u"Tomorrow"_s);
    }
    void add(qint64 from, qint64 to, const QString &title)
    {
        stored.addProgramme(u"one"_s, now + from, now + to, title, u"About "_s + title);
    }
    void store()
    {
        GuideImportJob job = stored.job();
        job.now = now;
        GuideImport(job).run();
    }
    /// Shows the channel with these attributes and waits for its rows.
    void open(const QString &attributes)
    {
        stored.addEntry(address, u"One"_s, attributes);
        store();
        show();
        QTRY_VERIFY(!messageShows() || message().text() != u"Loading the schedule..."_s);
    }
    void show()
    {
        guide.open(stored.path(), 0);
        MediaItem channel;
        channel.id = address;
        channel.name = u"One"_s;
        dialog = std::make_unique<ScheduleDialog>(u"S"_s, channel, &guide, nullptr);
        dialog->setAttribute(Qt::WA_DeleteOnClose, false);
        dialog->show();
        const auto note = [this](const QString &what) {
            return [this, what](const GuideProgramme &programme) { log << what + programme.title; };
        };
        QObject::connect(dialog.get(), &ScheduleDialog::archiveRequested, dialog.get(),
                         note(u"archive "_s));
        QObject::connect(dialog.get(), &ScheduleDialog::reminderToggled, dialog.get(),
                         note(u"reminder "_s));
        QObject::connect(dialog.get(), &ScheduleDialog::playRequested, dialog.get(),
                         [this] { log << u"play"_s; });
    }

    template <typename Widget>
    Widget &find(const QString &name) const
    {
        return *dialog->findChild<Widget *>(name);
    }
    QListWidget &list() const { return find<QListWidget>(u"scheduleList"_s); }
    QComboBox &days() const { return find<QComboBox>(u"dayBox"_s); }
    QLabel &message() const { return find<QLabel>(u"scheduleMessage"_s); }
    bool messageShows() const { return message().isVisible(); }
    QPushButton &button(const QString &name) const { return find<QPushButton>(name); }
    QString clock(qint64 from) const { return clockText(now + from, QTimeZone::systemTimeZone()); }
    QStringList texts() const
    {
        QStringList texts;
        for (int row = 0; row < list().count(); ++row)
            texts << list().item(row)->text();
        return texts;
    }
    /// What a screen reader says of a row beside its text.
    QString marks(int row) const
    {
        return list().item(row)->data(Qt::AccessibleDescriptionRole).toString();
    }
    QString current() const
    {
        return list().currentItem() != nullptr ? list().currentItem()->text() : QString();
    }
    /// The buttons that can be pressed.
    QStringList actions() const
    {
        QStringList actions;
        for (const QString &name :
             {u"playChannelButton"_s, u"archiveButton"_s, u"reminderButton"_s}) {
            if (button(name).isEnabled())
                actions << button(name).text();
        }
        return actions;
    }
    void choose(const QString &title) const
    {
        for (int row = 0; row < list().count(); ++row) {
            if (list().item(row)->text().endsWith(title))
                list().setCurrentRow(row);
        }
        QVERIFY(current().endsWith(title));
    }
    void click() const
    {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                          list().visualItemRect(list().currentItem()).center());
    }

    const qint64 now = QDateTime::currentSecsSinceEpoch();
    StoredGuide stored;
    Guide guide{nullptr};
    std::unique_ptr<ScheduleDialog> dialog;
    QStringList log; ///< what the window asked for
};

} // namespace

class tst_ScheduleDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QTRY_VERIFY_WITH_TIMEOUT((minute = shownMinute()) > 0, 90'000); }
    void init() { viewer = std::make_unique<Viewer>(); }
    void cleanup() { viewer.reset(); }

    void today();
    void otherDays();
    void aProgrammeOfAnEarlierDay();
    void whatAClickDoes_data();
    void whatAClickDoes();
    void reminders();
    void hoursWithoutAGuide();
    void whatWasToldStays();
    void theRunningRowMovesOnWithTheClock();
    void aChosenRowStays();
    void followsTheGuide();
    void aDayThatIsGone();
    void tellsWhenThereIsNothing_data();
    void tellsWhenThereIsNothing();
    void tellsOfAGuess();

private:
    std::unique_ptr<Viewer> viewer;
};

void tst_ScheduleDialog::today()
{
    viewer->addProgrammes();
    viewer->open(u"tvg-id=\"one\""_s + archive);
    QCOMPARE(viewer->dialog->windowTitle(), u"Schedule of One"_s);
    QCOMPARE(viewer->texts(), QStringList({viewer->clock(-20 * minute) + u"  Before"_s,
                                           viewer->clock(-10 * minute) + u"  Now"_s,
                                           viewer->clock(10 * minute) + u"  Next"_s}));
    QCOMPARE(viewer->marks(0), u"In the Archive"_s);
    QCOMPARE(viewer->marks(1), u"On Now, In the Archive"_s);
    QCOMPARE(viewer->marks(2), QString());
    QVERIFY(viewer->current().endsWith("Now"_L1));
    QVERIFY(viewer->list().hasFocus());
    QCOMPARE(viewer->find<QPlainTextEdit>(u"programmeDescription"_s).toPlainText(),
             viewer->clock(-10 * minute) + u" - "_s + viewer->clock(10 * minute) +
                 u"  Now\n\nAbout Now"_s);
    QCOMPARE(viewer->dialog->archive().form, CatchUpForm::Append);
}

void tst_ScheduleDialog::otherDays()
{
    viewer->addProgrammes();
    viewer->open(u"tvg-id=\"one\""_s + archive);
    QVERIFY(viewer->days().currentText().startsWith("Today"_L1));
    QCOMPARE(viewer->days().count(), 4);
    viewer->days().setCurrentIndex(viewer->days().currentIndex() - 1);
    QCOMPARE(viewer->texts(), QStringList{viewer->clock(-day) + u"  Yesterday"_s});
    QCOMPARE(viewer->actions(), QStringList{u"Watch from Start"_s});
    viewer->days().setCurrentIndex(viewer->days().count() - 1);
    QCOMPARE(viewer->texts(), QStringList{viewer->clock(day) + u"  Tomorrow"_s});
    QCOMPARE(viewer->actions(), QStringList{u"Remind Me"_s});
}

/// It is asked for of a channel without an archive, whose days begin with today otherwise.
void tst_ScheduleDialog::aProgrammeOfAnEarlierDay()
{
    viewer->addProgrammes();
    viewer->open(u"tvg-id=\"one\""_s);
    QCOMPARE(viewer->days().count(), 2);
    viewer->dialog->showProgramme(viewer->now - day);
    QVERIFY(viewer->current().endsWith("Yesterday"_L1));
    QCOMPARE(viewer->days().currentIndex(), 0);
    QCOMPARE(viewer->days().count(), 3);
    viewer->dialog->showProgramme(viewer->now - 10 * minute);
    QVERIFY(viewer->current().endsWith("Now"_L1));
    // The day stays among the others.
    QCOMPARE(viewer->days().currentIndex(), 1);
    QCOMPARE(viewer->days().count(), 3);
}

void tst_ScheduleDialog::whatAClickDoes_data()
{
    QTest::addColumn<bool>("hasArchive");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("request"); ///< of a click and of Enter
    QTest::addColumn<QStringList>("actions");
    const QString watch = u"Watch"_s;
    const QString fromStart = u"Watch from Start"_s;
    const QString remind = u"Remind Me"_s;
    QTest::newRow("over, archived")
        << true << u"Before"_s << u"archive Before"_s << QStringList{fromStart};
    QTest::newRow("over") << false << u"Before"_s << QString() << QStringList();
    QTest::newRow("running, archived")
        << true << u"Now"_s << u"archive Now"_s << QStringList{watch, fromStart};
    QTest::newRow("running") << false << u"Now"_s << u"play"_s << QStringList{watch};
    QTest::newRow("upcoming") << true << u"Next"_s << u"reminder Next"_s << QStringList{remind};
}

void tst_ScheduleDialog::whatAClickDoes()
{
    QFETCH(const bool, hasArchive);
    QFETCH(const QString, title);
    QFETCH(const QString, request);
    QFETCH(const QStringList, actions);
    viewer->addProgrammes();
    viewer->open(u"tvg-id=\"one\""_s + (hasArchive ? archive : QString()));
    viewer->choose(title);
    QCOMPARE(viewer->actions(), actions);
    const QStringList once = request.isEmpty() ? QStringList() : QStringList{request};
    viewer->click();
    QCOMPARE(viewer->log, once);
    QVERIFY(QTest::qWaitForWindowActive(viewer->dialog.get()));
    QTest::keyClick(&viewer->list(), Qt::Key_Return);
    QCOMPARE(viewer->log, once + once);
    // Each button does what it says.
    viewer->log.clear();
    viewer->button(u"playChannelButton"_s).click();
    viewer->button(u"archiveButton"_s).click();
    viewer->button(u"reminderButton"_s).click();
    QStringList expected;
    if (actions.contains(u"Watch"_s))
        expected << u"play"_s;
    if (actions.contains(u"Watch from Start"_s))
        expected << u"archive "_s + title;
    if (actions.contains(u"Remind Me"_s))
        expected << u"reminder "_s + title;
    QCOMPARE(viewer->log, expected);
}

void tst_ScheduleDialog::reminders()
{
    viewer->addProgrammes();
    viewer->open(u"tvg-id=\"one\""_s);
    viewer->choose(u"Next"_s);
    const auto bells = [this] {
        const QImage picture = viewer->list().viewport()->grab().toImage();
        QSet<int> rows;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) == bellColor)
                    rows.insert(viewer->list().row(viewer->list().itemAt(x, y)));
            }
        }
        return rows;
    };
    QCOMPARE(bells(), QSet<int>());
    viewer->dialog->setReminders({viewer->now + 10 * minute});
    QCOMPARE(bells(), QSet<int>{2});
    QCOMPARE(viewer->marks(2), u"Reminder Set"_s);
    QCOMPARE(viewer->marks(1), u"On Now"_s);
    QCOMPARE(viewer->actions(), QStringList{u"Remove Reminder"_s});
    viewer->dialog->setReminders({});
    QCOMPARE(bells(), QSet<int>());
    QCOMPARE(viewer->marks(2), QString());
    QCOMPARE(viewer->actions(), QStringList{u"Remind Me"_s});
}

void tst_ScheduleDialog::hoursWithoutAGuide()
{
    viewer->open(archive);
    QVERIFY(!viewer->messageShows());
    QCOMPARE(viewer->days().count(), 3);
    QVERIFY(viewer->marks(viewer->list().currentRow()).startsWith("On Now"_L1));
    const QString hour = viewer->current();
    QVERIFY2(hour.contains(" - "_L1), qPrintable(hour));
    viewer->click();
    QCOMPARE(viewer->log, QStringList{u"archive "_s + hour});
}

/// The guide knows less than the account has told.
void tst_ScheduleDialog::whatWasToldStays()
{
    viewer->stored.addEntry(address, u"One"_s, archive);
    viewer->store();
    viewer->show();
    viewer->dialog->setProgrammes({{viewer->now - 600, viewer->now + 600, u"Told"_s, {}}});
    bool answered = false; // after the dialog, which asked first
    viewer->guide.fetchOnNow({address}, viewer->now,
                             [&answered](const QHash<QString, OnNow> &) { answered = true; });
    QTRY_VERIFY(answered);
    QVERIFY(!viewer->messageShows());
    QCOMPARE(viewer->current().section(u"  "_s, 1), u"Told"_s);
}

void tst_ScheduleDialog::theRunningRowMovesOnWithTheClock()
{
    viewer->add(-10 * minute, 2, u"Now"_s);
    viewer->add(2, 10 * minute, u"Next"_s);
    viewer->open(u"tvg-id=\"one\""_s);
    QTRY_VERIFY(viewer->current().endsWith("Next"_L1));
    QVERIFY(QDateTime::currentSecsSinceEpoch() >= viewer->now + 2);
    QCOMPARE(viewer->marks(1), u"On Now"_s);
    QCOMPARE(viewer->actions(), QStringList{u"Watch"_s});
    // It waits for the end of the next one, or for the full hour.
    const QTimer &timer = viewer->find<QTimer>(u"scheduleTimer"_s);
    QVERIFY(timer.isSingleShot());
    QVERIFY(timer.remainingTime() > 0);
}

void tst_ScheduleDialog::aChosenRowStays()
{
    viewer->add(-20 * minute, -10 * minute, u"Before"_s);
    viewer->add(-10 * minute, 2, u"Now"_s);
    viewer->add(2, 10 * minute, u"Next"_s);
    viewer->open(u"tvg-id=\"one\""_s);
    viewer->choose(u"Before"_s);
    QTRY_COMPARE(viewer->marks(2), u"On Now"_s);
    QVERIFY(viewer->current().endsWith("Before"_L1));
}

void tst_ScheduleDialog::followsTheGuide()
{
    viewer->addProgrammes();
    viewer->open(u"tvg-id=\"one\""_s);
    viewer->stored.clearGuide();
    viewer->add(-5 * minute, 5 * minute, u"Changed"_s);
    viewer->store();
    viewer->guide.reload();
    QTRY_COMPARE(viewer->texts(), QStringList{viewer->clock(-5 * minute) + u"  Changed"_s});
    QVERIFY(viewer->current().endsWith("Changed"_L1));
}

void tst_ScheduleDialog::aDayThatIsGone()
{
    viewer->addProgrammes();
    viewer->open(u"tvg-id=\"one\""_s);
    viewer->days().setCurrentIndex(viewer->days().count() - 1);
    QVERIFY(viewer->days().currentText().startsWith("Tomorrow"_L1));
    viewer->stored.clearGuide();
    viewer->add(-5 * minute, 5 * minute, u"Changed"_s);
    viewer->store();
    viewer->guide.reload();
    QTRY_COMPARE(viewer->texts(), QStringList{viewer->clock(-5 * minute) + u"  Changed"_s});
    QVERIFY(viewer->days().currentText().startsWith("Today"_L1));
}

void tst_ScheduleDialog::tellsWhenThereIsNothing_data()
{
    QTest::addColumn<std::function<void(Viewer &)>>("open");
    QTest::addColumn<QString>("text");
    using Step = std::function<void(Viewer &)>;
    QTest::newRow("not answered yet")
        << Step([](Viewer &v) { v.show(); }) << u"Loading the schedule..."_s;
    QTest::newRow("no guide of the channel")
        << Step([](Viewer &v) { v.open({}); }) << u"The guide has no programmes of this channel."_s;
    QTest::newRow("no guide of the day") << Step([](Viewer &v) {
        v.add(2 * day, 2 * day + minute, u"Later"_s);
        v.open(u"tvg-id=\"one\""_s);
        v.days().setCurrentIndex(1);
    }) << u"The guide has no programmes of this day."_s;
}

void tst_ScheduleDialog::tellsWhenThereIsNothing()
{
    QFETCH(const std::function<void(Viewer &)>, open);
    QFETCH(const QString, text);
    open(*viewer);
    QVERIFY(viewer->messageShows());
    QVERIFY(viewer->dialog->archive().form == CatchUpRules().form);
    QCOMPARE(viewer->message().text(), text);
    QCOMPARE(viewer->list().count(), 0);
    QCOMPARE(viewer->actions(), QStringList());
    QVERIFY(QTest::qWaitForWindowActive(viewer->dialog.get()));
    QTest::keyClick(&viewer->list(), Qt::Key_Return);
    QCOMPARE(viewer->log, QStringList());
}

void tst_ScheduleDialog::tellsOfAGuess()
{
    viewer->stored.addChannel(u"one"_s, u"DE: One HD"_s);
    viewer->addProgrammes();
    viewer->open({});
    const QLabel &note = viewer->find<QLabel>(u"matchNote"_s);
    QVERIFY(note.isVisible());
    QCOMPARE(note.text(), u"The guide's channel was guessed from the name: one"_s);
}

VANTIRO_TEST_MAIN(tst_ScheduleDialog)
#include "tst_ScheduleDialog.moc"
