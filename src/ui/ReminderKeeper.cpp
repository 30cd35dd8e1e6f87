#include "ui/ReminderKeeper.h"

#include "library/Library.h"
#include "ui/GuideTexts.h"
#include "ui/PlainMessageBox.h"

#include <QDateTime>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTimeZone>
#include <QTimer>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 msOfSecond = 1000;
constexpr qint64 lateSeconds = 60; ///< from then on the message says when it was

QString messageText(const Reminder &reminder, qint64 now)
{
    if (now - reminder.start < lateSeconds) {
        return ReminderKeeper::tr("%1 begins on %2.").arg(reminder.title, reminder.name);
    }
    return ReminderKeeper::tr("%1 began at %2 on %3.")
        .arg(reminder.title, clockText(reminder.start, QTimeZone::systemTimeZone()), reminder.name);
}

void bringToFront(QWidget &window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

ReminderKeeper::ReminderKeeper(Library *keptLibrary, QWidget *mainWindow, QObject *parent)
    : QObject(parent)
    , library(keptLibrary)
    , window(mainWindow)
    , timer(new QTimer(this))
{
    timer->setObjectName(u"reminderTimer"_s);
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    connect(timer, &QTimer::timeout, this, &ReminderKeeper::look);
    connect(library, &Library::changed, this, [this](LibraryPart part) {
        if (part == LibraryPart::Reminders) {
            look();
        }
    });
    // Not before the window that is being made.
    QTimer::singleShot(0, this, &ReminderKeeper::look);
}

ReminderKeeper::~ReminderKeeper() = default;

LibraryChange ReminderKeeper::toggle(const LibraryEntry &channel, const GuideProgramme &programme)
{
    const Reminder reminder = reminderOf(channel, programme.start, programme.stop, programme.title);
    return startsOf(channel).contains(programme.start) ? library->removeReminder(reminder)
                                                       : library->addReminder(reminder);
}

QSet<qint64> ReminderKeeper::startsOf(const LibraryEntry &channel) const
{
    QSet<qint64> starts;
    for (const Reminder &reminder : library->reminders()) {
        if (reminder.source == channel.source && reminder.kind == channel.kind &&
            reminder.entryId == channel.id) {
            starts.insert(reminder.start);
        }
    }
    return starts;
}

void ReminderKeeper::look()
{
    if (isLooking) {
        // Dropping reminders changes the library.
        return;
    }
    const QScopedValueRollback guard(isLooking, true);
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    dropThoseThatAreOver(now);
    const QList<Reminder> reminders = library->reminders();
    if (told && !reminders.contains(*told)) {
        message.reset();
        told.reset();
    }
    if (!told) {
        showFirst(reminders, now);
    }
    waitForNext(reminders);
}

void ReminderKeeper::dropThoseThatAreOver(qint64 now)
{
    for (const Reminder &reminder : library->reminders()) {
        if (reminder.stop <= now) {
            library->removeReminder(reminder);
        }
    }
}

void ReminderKeeper::showFirst(const QList<Reminder> &reminders, qint64 now)
{
    if (reminders.isEmpty() || reminders.constFirst().start > now) {
        return;
    }
    told = reminders.constFirst();
    // Without a parent it shows while the main window is minimised.
    message =
        std::make_unique<PlainMessageBox>(QMessageBox::Information, tr("Reminder"),
                                          messageText(*told, now), QMessageBox::Close, nullptr);
    message->setObjectName(u"reminderMessage"_s);
    const QPushButton *watch = message->addButton(tr("Watch"), QMessageBox::AcceptRole);
    // Above a picture that fills the screen, which keeps the keyboard.
    message->setWindowFlag(Qt::WindowStaysOnTopHint);
    message->setAttribute(Qt::WA_ShowWithoutActivating);
    message->setAttribute(Qt::WA_QuitOnClose, false);
    message->setModal(false);
    connect(message.get(), &QDialog::finished, this, [this, watch, reminder = *told] {
        closeMessage(reminder, message->clickedButton() == watch);
    });
    message->show();
}

void ReminderKeeper::closeMessage(const Reminder &reminder, bool watch)
{
    // The box is at work.
    message.release()->deleteLater();
    told.reset();
    // Shows the next one.
    library->removeReminder(reminder);
    if (watch) {
        bringToFront(*window);
        Q_EMIT watchRequested(reminder);
    }
}

void ReminderKeeper::waitForNext(const QList<Reminder> &reminders)
{
    if (reminders.isEmpty()) {
        timer->stop();
        return;
    }
    const qint64 nowMs = QDateTime::currentMSecsSinceEpoch();
    qint64 waitMs = longestWaitMs;
    for (const Reminder &reminder : reminders) {
        for (const qint64 time : {reminder.start, reminder.stop}) {
            if (time * msOfSecond > nowMs) {
                waitMs = std::min(waitMs, time * msOfSecond - nowMs);
            }
        }
    }
    timer->start(static_cast<int>(waitMs));
}
