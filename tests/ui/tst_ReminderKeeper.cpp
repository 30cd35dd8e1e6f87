// Reminders of programmes, in a real library file.

#include "../library/LibraryFixture.h"
#include "library/Library.h"
#include "support/TestMain.h"
#include "ui/GuideTexts.h"
#include "ui/ReminderKeeper.h"

#include <QApplication>
#include <QDateTime>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 minute = 60;
const LibraryEntry channel{u"S"_s, EntryKind::Live, u"7"_s, u"News"_s, {}};

qint64 currentTime()
{
    return QDateTime::currentSecsSinceEpoch();
}

/// A program with a main window, a library and reminders.
struct Program
{
    Program()
    {
        window.show();
        if (!QTest::qWaitForWindowExposed(&window))
            qFatal("the window does not show");
        QObject::connect(&keeper, &ReminderKeeper::watchRequested, &window,
                         [this](const Reminder &reminder) { watched << reminder.title; });
    }

    /// Sets a reminder of what runs between these times from now.
    void remind(const QString &title, qint64 from, qint64 to = 10 * minute)
    {
        keeper.toggle(channel, {currentTime() + from, currentTime() + to, title, {}});
    }
    /// The text of the message, empty when none shows.
    static QString text()
    {
        const QMessageBox *box = message();
        return box != nullptr ? box->text() : QString();
    }
    static QMessageBox *message()
    {
        QMessageBox *found = nullptr;
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == "reminderMessage"_L1 && widget->isVisible()) {
                if (found != nullptr)
                    qFatal("two messages show");
                found = qobject_cast<QMessageBox *>(widget);
            }
        }
        return found;
    }
    static void press(const QString &text)
    {
        for (QAbstractButton *button : message()->buttons()) {
            if (button->text().remove(u'&') == text) {
                button->click();
                return;
            }
        }
        QFAIL("no such button");
    }
    QStringList kept() const
    {
        QStringList titles;
        for (const Reminder &reminder : library.reminders())
            titles << reminder.title;
        return titles;
    }

    Library library{nullptr};
    QWidget window;
    ReminderKeeper keeper{&library, &window, nullptr};
    QTimer &timer = *keeper.findChild<QTimer *>(u"reminderTimer"_s);
    QStringList watched;
};

} // namespace

class tst_ReminderKeeper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { program.reset(); }

    void tellsWhenAProgrammeBegins();
    void theMessageIsAWindowOfItsOwn();
    void watchShowsTheWindow();
    void closeForgetsTheReminder();
    void oneMessageAtATime();
    void startsOfAChannel();
    void keptOverARestart_data();
    void keptOverARestart();
    void aMessageGoesWithItsReminder_data();
    void aMessageGoesWithItsReminder();
    void looksAtTheClock_data();
    void looksAtTheClock();
    void togglesReminders();

private:
    std::unique_ptr<Program> program;
};

void tst_ReminderKeeper::init()
{
    PrivateProfile::current().clear();
    program = std::make_unique<Program>();
}

void tst_ReminderKeeper::tellsWhenAProgrammeBegins()
{
    const qint64 start = currentTime() + 2;
    program->remind(u"Film"_s, 2);
    QTRY_COMPARE(Program::text(), u"Film begins on News."_s);
    QVERIFY(currentTime() >= start);
    QCOMPARE(Program::message()->windowTitle(), u"Reminder"_s);
}

void tst_ReminderKeeper::theMessageIsAWindowOfItsOwn()
{
    program->window.showMinimized();
    program->remind(u"Film"_s, 0);
    QVERIFY(Program::message() != nullptr);
    const QMessageBox &message = *Program::message();
    QVERIFY(message.parentWidget() == nullptr);
    QVERIFY(!message.isModal());
    QVERIFY(message.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    // The keyboard stays where it was, and the program ends with its main window.
    QVERIFY(message.testAttribute(Qt::WA_ShowWithoutActivating));
    QVERIFY(!message.testAttribute(Qt::WA_QuitOnClose));
}

void tst_ReminderKeeper::watchShowsTheWindow()
{
    program->window.showMinimized();
    program->remind(u"Film"_s, 0);
    Program::press(u"Watch"_s);
    QCOMPARE(program->watched, QStringList{u"Film"_s});
    QVERIFY(!program->window.isMinimized());
    QVERIFY(QTest::qWaitForWindowActive(&program->window));
    QVERIFY(Program::message() == nullptr);
    QCOMPARE(program->kept(), QStringList());
}

void tst_ReminderKeeper::closeForgetsTheReminder()
{
    program->remind(u"Film"_s, 0);
    Program::press(u"Close"_s);
    QVERIFY(Program::message() == nullptr);
    QCOMPARE(program->watched, QStringList());
    QCOMPARE(program->kept(), QStringList());
    QVERIFY(!program->timer.isActive());
}

void tst_ReminderKeeper::oneMessageAtATime()
{
    program->remind(u"One"_s, -2);
    program->remind(u"Two"_s, -1);
    QCOMPARE(Program::text(), u"One begins on News."_s);
    Program::press(u"Close"_s);
    QCOMPARE(Program::text(), u"Two begins on News."_s);
    Program::press(u"Watch"_s);
    QVERIFY(Program::message() == nullptr);
    QCOMPARE(program->watched, QStringList{u"Two"_s});
}

void tst_ReminderKeeper::startsOfAChannel()
{
    const qint64 start = currentTime() + 5 * minute;
    LibraryEntry ofAnotherSource = channel;
    ofAnotherSource.source = u"T"_s;
    LibraryEntry ofAPlaylist = channel;
    ofAPlaylist.kind = EntryKind::Channel;
    LibraryEntry another = channel;
    another.id = u"8"_s;
    qint64 later = start;
    for (const LibraryEntry &entry : {channel, ofAnotherSource, ofAPlaylist, another}) {
        program->keeper.toggle(entry, {later, later + minute, u"A"_s, {}});
        later += minute;
    }
    QCOMPARE(program->kept().size(), 4);
    QCOMPARE(program->keeper.startsOf(channel), QSet<qint64>{start});
    QCOMPARE(program->keeper.startsOf(another), QSet<qint64>{start + 3 * minute});
}

void tst_ReminderKeeper::keptOverARestart_data()
{
    QTest::addColumn<qint64>("from"); ///< seconds from now
    QTest::addColumn<qint64>("to");
    QTest::addColumn<bool>("shows");
    QTest::addColumn<bool>("isKept");
    QTest::newRow("upcoming") << 10 * minute << 20 * minute << false << true;
    QTest::newRow("it still runs") << -10 * minute << 10 * minute << true << true;
    QTest::newRow("over") << -20 * minute << -10 * minute << false << false;
}

void tst_ReminderKeeper::keptOverARestart()
{
    QFETCH(const qint64, from);
    QFETCH(const qint64, to);
    QFETCH(const bool, shows);
    QFETCH(const bool, isKept);
    program.reset();
    const qint64 start = currentTime() + from;
    Library(nullptr).addReminder(reminderOf(channel, start, currentTime() + to, u"Film"_s));
    program = std::make_unique<Program>();
    QTRY_COMPARE(program->timer.isActive(), isKept);
    QTRY_COMPARE(program->kept(), isKept ? QStringList{u"Film"_s} : QStringList());
    const QString began =
        u"Film began at %1 on News."_s.arg(clockText(start, QTimeZone::systemTimeZone()));
    QCOMPARE(Program::text(), shows ? began : QString());
}

void tst_ReminderKeeper::aMessageGoesWithItsReminder_data()
{
    using Step = std::function<void(Program &)>;
    QTest::addColumn<Step>("step");
    QTest::newRow("the programme is over") << Step();
    QTest::newRow("its source is deleted")
        << Step([](Program &p) { p.library.forgetSource(u"S"_s); });
}

void tst_ReminderKeeper::aMessageGoesWithItsReminder()
{
    QFETCH(const std::function<void(Program &)>, step);
    program->remind(u"Film"_s, 0, step ? 10 * minute : 4);
    QVERIFY(Program::message() != nullptr);
    if (step)
        step(*program);
    QTRY_VERIFY_WITH_TIMEOUT(Program::message() == nullptr, 20'000);
    QCOMPARE(program->kept(), QStringList());
    QVERIFY(!program->timer.isActive());
}

void tst_ReminderKeeper::looksAtTheClock_data()
{
    QTest::addColumn<qint64>("from");
    QTest::addColumn<int>("longestMs");
    QTest::addColumn<int>("shortestMs");
    QTest::newRow("soon") << qint64(20) << 20'000 << 12'000;
    QTest::newRow("tomorrow") << qint64(24) * 60 * minute << 60'000 << 58'000;
}

void tst_ReminderKeeper::looksAtTheClock()
{
    QFETCH(const qint64, from);
    QFETCH(const int, longestMs);
    QFETCH(const int, shortestMs);
    QCoreApplication::processEvents(); // its first look, which comes later than its start
    QVERIFY(!program->timer.isActive());
    program->remind(u"Film"_s, from, from + minute);
    QVERIFY(program->timer.isActive());
    // Not the remaining time: that of a coarse timer may be longer.
    QVERIFY(program->timer.interval() <= longestMs);
    QVERIFY(program->timer.interval() >= shortestMs);
    program->library.clear({LibraryPart::Reminders});
    QVERIFY(!program->timer.isActive());
}

void tst_ReminderKeeper::togglesReminders()
{
    const GuideProgramme programme{currentTime() + minute, currentTime() + 2 * minute, u"A"_s, {}};
    LibraryEntry other = channel;
    other.id = u"8"_s;
    program->keeper.toggle(channel, programme);
    QCOMPARE(program->keeper.startsOf(channel), QSet<qint64>{programme.start});
    QCOMPARE(program->keeper.startsOf(other), QSet<qint64>());
    const LibraryChange inverse = program->keeper.toggle(channel, programme);
    QCOMPARE(program->keeper.startsOf(channel), QSet<qint64>());
    program->library.apply(inverse);
    QCOMPARE(program->keeper.startsOf(channel), QSet<qint64>{programme.start});
}

VANTIRO_TEST_MAIN(tst_ReminderKeeper)
#include "tst_ReminderKeeper.moc"
