#pragma once

#include "guide/GuideRecords.h"
#include "library/LibraryRecords.h"
#include "library/LibraryState.h"

#include <QObject>
#include <QSet>
#include <QString>

#include <memory>
#include <optional>

class Library;
class PlainMessageBox;

class QTimer;
class QWidget;

/// Tells the user when a programme with a reminder begins, in a window of its own, one at a time.
/// A reminder stays in the library until its message is closed, or its programme is over: one that
/// came while the program did not run is told at the next start if its programme still runs.
/// Without reminders nothing runs.
class ReminderKeeper final : public QObject
{
    Q_OBJECT

public:
    /// The clock may jump, and the machine may sleep: it is looked at this often.
    static constexpr int longestWaitMs = 60'000;

    /// Neither is owned; both must outlive the keeper. "Watch" brings `mainWindow` to the front.
    ReminderKeeper(Library *library, QWidget *mainWindow, QObject *parent);
    ~ReminderKeeper() override;
    Q_DISABLE_COPY_MOVE(ReminderKeeper)

    /// Sets a reminder of a programme of the channel, or removes the one that there is. Returns
    /// what takes it back.
    LibraryChange toggle(const LibraryEntry &channel, const GuideProgramme &programme);
    /// The starts of a channel's programmes that have reminders, in seconds since the epoch.
    QSet<qint64> startsOf(const LibraryEntry &channel) const;

Q_SIGNALS:
    /// The user wants to see the programme's channel.
    void watchRequested(const Reminder &reminder);

private:
    void look();
    void dropThoseThatAreOver(qint64 now);
    void showFirst(const QList<Reminder> &reminders, qint64 now);
    void closeMessage(const Reminder &reminder, bool watch);
    void waitForNext(const QList<Reminder> &reminders);

    Library *library;
    QWidget *window;
    QTimer *timer;
    bool isLooking = false;
    std::optional<Reminder> told; ///< what the message is about
    std::unique_ptr<PlainMessageBox> message;
};
