#include "ui/ScheduleDialog.h"

#include "guide/Guide.h"
#include "ui/ActivateKeys.h"
#include "ui/AlignWithLayout.h"
#include "ui/ElidedComboBox.h"
#include "ui/GuideTexts.h"
#include "ui/ScheduleItem.h"
#include "ui/WrappedLabel.h"

#include <QBoxLayout>
#include <QDateTime>
#include <QDialogButtonBox>
#include <QEvent>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using Phase = ScheduleRow::Phase;

namespace {

constexpr int smallestWidth = 560;
constexpr int smallestHeight = 480;
constexpr int descriptionHeight = 110;
constexpr qint64 secondsOfDay = 24LL * 60 * 60;
constexpr qint64 daysAhead = 14; ///< more than any guide holds
constexpr qint64 noStart = -1;

qint64 currentTime()
{
    return QDateTime::currentSecsSinceEpoch();
}

} // namespace

ScheduleDialog::ScheduleDialog(QString source, MediaItem channel, Guide *channelGuide,
                               QWidget *parent)
    : QDialog(parent)
    , sourceName(std::move(source))
    , item(std::move(channel))
    , guide(channelGuide)
    , timer(new QTimer(this))
    , dayBox(new ElidedComboBox)
    , matchNote(new WrappedLabel)
    , list(new QListWidget)
    , message(new QLabel)
    , description(new QPlainTextEdit)
    , playButton(new QPushButton(tr("Watch")))
    , archiveButton(new QPushButton(tr("Watch from Start")))
    , reminderButton(new QPushButton)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Schedule of %1").arg(item.name.toString()));
    setMinimumSize(smallestWidth, smallestHeight);
    timer->setObjectName(u"scheduleTimer"_s);
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer); // others are minutes off after an hour
    buildLayout();
    connectControls();
    update();
    fetch();
}

void ScheduleDialog::buildLayout()
{
    dayBox->setObjectName(u"dayBox"_s);
    dayBox->setAccessibleName(tr("Day"));
    list->setObjectName(u"scheduleList"_s);
    list->setAccessibleName(tr("Programmes"));
    list->setItemDelegate(new ScheduleDelegate(list));
    message->setObjectName(u"scheduleMessage"_s);
    message->setTextFormat(Qt::PlainText);
    message->setWordWrap(true);
    matchNote->setObjectName(u"matchNote"_s);
    matchNote->hide();
    description->setObjectName(u"programmeDescription"_s);
    description->setAccessibleName(tr("Description"));
    description->setReadOnly(true);
    alignWithLayout(description);
    description->setTabChangesFocus(true);
    description->setFixedHeight(descriptionHeight);
    playButton->setObjectName(u"playChannelButton"_s);
    archiveButton->setObjectName(u"archiveButton"_s);
    reminderButton->setObjectName(u"reminderButton"_s);

    auto *buttons = new QDialogButtonBox;
    for (QPushButton *button : {playButton, archiveButton, reminderButton}) {
        // Return and Enter act on the current row wherever the focus is not on a button.
        button->setAutoDefault(false);
        buttons->addButton(button, QDialogButtonBox::ActionRole);
    }
    buttons->addButton(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(dayBox);
    layout->addWidget(matchNote);
    layout->addWidget(list, 1);
    layout->addWidget(message);
    layout->addWidget(description);
    layout->addWidget(buttons);
    list->setFocus();
}

void ScheduleDialog::connectControls()
{
    connect(timer, &QTimer::timeout, this, &ScheduleDialog::update);
    connect(dayBox, &QComboBox::currentIndexChanged, this, [this] {
        fillRows(noStart);
        scrollToCurrent();
    });
    connect(list, &QListWidget::currentRowChanged, this, &ScheduleDialog::showCurrent);
    connect(list, &QListWidget::itemClicked, this, &ScheduleDialog::activate);
    addActivateKeyShortcuts(list, this, [this] { activate(); });
    connect(playButton, &QPushButton::clicked, this, &ScheduleDialog::playRequested);
    connect(archiveButton, &QPushButton::clicked, this,
            [this] { Q_EMIT archiveRequested(currentRow()->programme); });
    connect(reminderButton, &QPushButton::clicked, this,
            [this] { Q_EMIT reminderToggled(currentRow()->programme); });
    connect(guide, &Guide::changed, this, &ScheduleDialog::fetch);
}

CatchUpRules ScheduleDialog::archive() const
{
    return model ? model->entry().catchUp : CatchUpRules();
}

void ScheduleDialog::setReminders(const QSet<qint64> &starts)
{
    if (reminders != starts) {
        reminders = starts;
        update();
    }
}

void ScheduleDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        // The timer stood still while the machine slept.
        update();
    }
    QDialog::changeEvent(event);
}

void ScheduleDialog::fetch()
{
    const qint64 now = currentTime();
    const qint64 from = now - (ScheduleModel::mostArchiveDays + 1) * secondsOfDay;
    const QString id = item.id;
    guide->fetchSchedules(
        {id}, from, now + daysAhead * secondsOfDay,
        [self = QPointer<ScheduleDialog>(this), id](const QHash<QString, GuideSchedule> &found) {
            if (ScheduleDialog *dialog = self.data(); dialog != nullptr) {
                dialog->takeAnswer(found.value(id));
            }
        });
}

void ScheduleDialog::takeAnswer(const GuideSchedule &answer)
{
    schedule.entry = answer.entry;
    if (answer.programmes.isEmpty() && !schedule.programmes.isEmpty()) {
        // What setProgrammes() has told is all that is known.
        showSchedule();
        return;
    }
    schedule.programmes = answer.programmes;
    showSchedule();
    if (schedule.programmes.isEmpty() && !std::exchange(toldThatNothingIsKnown, true)) {
        Q_EMIT nothingKnown();
    }
}

void ScheduleDialog::setProgrammes(const QList<GuideProgramme> &programmes)
{
    schedule.programmes = programmes;
    showSchedule();
}

void ScheduleDialog::showSchedule()
{
    model.emplace(schedule, QTimeZone::systemTimeZone());
    update();
    if (startToShow) {
        const qint64 start = *startToShow;
        startToShow.reset();
        showProgramme(start);
    }
}

void ScheduleDialog::showProgramme(qint64 start)
{
    if (!model) {
        startToShow = start;
        return;
    }
    const QDate day = model->dayOf(start);
    // Before today there are only the days of an archive, which the channel may not have.
    oldestShown = oldestShown.isValid() ? std::min(oldestShown, day) : day;
    fillDays(day, model->dayOf(currentTime()));
    fillRows(start);
    scrollToCurrent();
}

void ScheduleDialog::update()
{
    const qint64 now = currentTime();
    const QDate today = model ? model->dayOf(now) : QDate::currentDate();
    const ScheduleRow *current = currentRow();
    const bool followsClock = current != nullptr && current->phase == Phase::Running;
    const QDate shown = dayBox->currentData().toDate();
    fillDays(followsClock || !shown.isValid() ? today : shown, today);
    fillRows(followsClock || current == nullptr ? noStart : current->programme.start);
    if (followsClock || current == nullptr) {
        scrollToCurrent();
    }
    if (model) {
        const qint64 dueMs = model->nextChange(now) * 1000 - QDateTime::currentMSecsSinceEpoch();
        timer->start(static_cast<int>(std::max<qint64>(dueMs, 1)));
    }
}

void ScheduleDialog::fillDays(QDate chosen, QDate today)
{
    const QList<QDate> days = model ? model->days(currentTime(), oldestShown) : QList<QDate>{today};
    const QSignalBlocker blocker(dayBox);
    dayBox->clear();
    for (const QDate day : days) {
        dayBox->addItem(dayText(day, today), day);
    }
    const int place = dayBox->findData(chosen);
    dayBox->setCurrentIndex(place >= 0 ? place : dayBox->findData(today));
}

void ScheduleDialog::fillRows(qint64 currentStart)
{
    rows =
        model ? model->rows(dayBox->currentData().toDate(), currentTime()) : QList<ScheduleRow>();
    const QSignalBlocker blocker(list);
    while (list->count() > rows.size()) {
        delete list->takeItem(list->count() - 1);
    }
    qsizetype place = rows.isEmpty() ? -1 : std::max<qsizetype>(runningRow(rows), 0);
    for (int row = 0; row < rows.size(); ++row) {
        const ScheduleRow &shown = rows.at(row);
        if (row == list->count()) {
            list->addItem(new QListWidgetItem);
        }
        showRow(*list->item(row), rowText(shown), shown, reminders.contains(shown.programme.start));
        if (shown.programme.start == currentStart) {
            place = row;
        }
    }
    list->setCurrentRow(static_cast<int>(place));
    showNotes();
    showCurrent();
}

void ScheduleDialog::scrollToCurrent()
{
    list->scrollToItem(list->currentItem(), QAbstractItemView::PositionAtCenter);
}

/// What is to be said beside the rows.
void ScheduleDialog::showNotes()
{
    message->setText(emptyText());
    message->setVisible(rows.isEmpty());
    const bool isGuess = model && model->entry().match.rule == GuideMatch::Rule::Suggestion;
    matchNote->setText(
        isGuess
            ? tr("The guide's channel was guessed from the name: %1").arg(model->entry().match.id)
            : QString());
    matchNote->setVisible(isGuess);
}

void ScheduleDialog::showCurrent()
{
    const ScheduleRow *row = currentRow();
    const bool isRunning = row != nullptr && row->phase == Phase::Running;
    const bool isUpcoming = row != nullptr && row->phase == Phase::Upcoming;
    playButton->setEnabled(isRunning);
    archiveButton->setEnabled(row != nullptr && row->inArchive);
    reminderButton->setEnabled(isUpcoming);
    reminderButton->setText(isUpcoming && reminders.contains(row->programme.start)
                                ? tr("Remove Reminder")
                                : tr("Remind Me"));
    // In some languages the buttons need more. Their box would tell of the new text only later.
    reminderButton->parentWidget()->updateGeometry();
    setMinimumWidth(std::max(smallestWidth, minimumSizeHint().width()));
    QString text;
    if (row != nullptr && row->isHour) {
        text = row->programme.title;
    } else if (row != nullptr) {
        text = spanText(row->programme, model->timeZone()) + u"  "_s + row->programme.title;
        if (!row->programme.description.isEmpty()) {
            text += u"\n\n"_s + row->programme.description;
        }
    }
    if (description->toPlainText() != text) {
        description->setPlainText(text);
    }
}

/// What a click or Enter does.
void ScheduleDialog::activate()
{
    const ScheduleRow *row = currentRow();
    if (row == nullptr) {
        return;
    }
    const GuideProgramme programme = row->programme;
    if (row->inArchive) {
        Q_EMIT archiveRequested(programme);
    } else if (row->phase == Phase::Running) {
        Q_EMIT playRequested();
    } else if (row->phase == Phase::Upcoming) {
        Q_EMIT reminderToggled(programme);
    }
}

const ScheduleRow *ScheduleDialog::currentRow() const
{
    const int row = list->currentRow();
    return row >= 0 && row < rows.size() ? &rows.at(row) : nullptr;
}

QString ScheduleDialog::rowText(const ScheduleRow &row) const
{
    return row.isHour
               ? row.programme.title
               : clockText(row.programme.start, model->timeZone()) + u"  "_s + row.programme.title;
}

QString ScheduleDialog::emptyText() const
{
    if (!model) {
        return tr("Loading the schedule...");
    }
    return model->isEmpty() ? tr("The guide has no programmes of this channel.")
                            : tr("The guide has no programmes of this day.");
}
