#pragma once

#include "guide/GuideRecords.h"
#include "model/CatalogRecords.h"
#include "ui/ScheduleModel.h"

#include <QDate>
#include <QDialog>
#include <QList>
#include <QSet>

#include <optional>

class Guide;
class WrappedLabel;

class QComboBox;
class QLabel;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QTimer;

/// A channel's schedule: its days, the programmes of one, and what can be done with each. It asks
/// the guide for the channel and follows the guide's changes and the clock. Not modal; deletes
/// itself when it is closed. To be closed when another source's guide opens.
class ScheduleDialog final : public QDialog
{
    Q_OBJECT

public:
    /// `channel` is an entry of the source with that name. `guide` is not owned.
    ScheduleDialog(QString source, MediaItem channel, Guide *guide, QWidget *parent);

    const QString &source() const { return sourceName; }
    const MediaItem &channel() const { return item; }
    /// The channel's archive; an empty one until the guide has answered.
    CatchUpRules archive() const;

    /// Makes the programme that starts then the current one, once the guide has answered.
    void showProgramme(qint64 start);
    /// Shows these, after nothingKnown().
    void setProgrammes(const QList<GuideProgramme> &programmes);
    /// The starts of the programmes that have a reminder, in seconds since the epoch.
    void setReminders(const QSet<qint64> &starts);

Q_SIGNALS:
    /// The guide has no programme of the channel. Comes once.
    void nothingKnown();
    /// The channel itself is to play.
    void playRequested();
    /// A programme is to play from the archive, from its beginning.
    void archiveRequested(const GuideProgramme &programme);
    /// A reminder of an upcoming programme is to be set, or removed where there is one.
    void reminderToggled(const GuideProgramme &programme);

protected:
    void changeEvent(QEvent *event) override;

private:
    void buildLayout();
    void connectControls();
    void fetch();
    void takeAnswer(const GuideSchedule &answer);
    void showSchedule();
    /// Brings days, rows and buttons up to date, and waits for the next change.
    void update();
    void fillDays(QDate chosen, QDate today);
    /// Makes the row that starts then the current one, otherwise the one that runs.
    void fillRows(qint64 currentStart);
    void scrollToCurrent();
    void showNotes();
    void showCurrent();
    void activate();
    const ScheduleRow *currentRow() const;
    QString rowText(const ScheduleRow &row) const;
    QString emptyText() const;

    const QString sourceName;
    const MediaItem item;
    Guide *guide;
    std::optional<ScheduleModel> model; ///< none until the guide has answered
    QList<ScheduleRow> rows;            ///< those that show
    QSet<qint64> reminders;
    GuideSchedule schedule; ///< what is known
    bool toldThatNothingIsKnown = false;
    std::optional<qint64> startToShow;
    QDate oldestShown; ///< of the programmes that were to be shown; null without one
    QTimer *timer;     ///< runs until the next change

    QComboBox *dayBox;
    WrappedLabel *matchNote;
    QListWidget *list;
    QLabel *message;
    QPlainTextEdit *description;
    QPushButton *playButton;
    QPushButton *archiveButton;
    QPushButton *reminderButton;
};
