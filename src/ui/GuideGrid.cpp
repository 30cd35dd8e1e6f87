#include "ui/GuideGrid.h"

#include "guide/CatchUp.h"
#include "guide/Guide.h"
#include "ui/GuideTexts.h"
#include "ui/GuideTitles.h"

#include <QDateTime>
#include <QEvent>
#include <QScrollBar>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace {

/// In what time the line for now moves by about a pixel.
constexpr auto clockInterval = 15s;
/// As long as a guide's last programme is not known.
constexpr int usualDaysAhead = 7;
/// Whatever a guide says of its last programme.
constexpr int mostDaysAhead = 31;

qint64 currentTime()
{
    return QDateTime::currentSecsSinceEpoch();
}

} // namespace

GuideGrid::GuideGrid(QWidget *parent)
    : QAbstractScrollArea(parent)
    , titles(new GuideTitles(this))
    , time(currentTime())
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Programme guide"));
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    clock.setInterval(clockInterval);
    connect(&clock, &QTimer::timeout, this, &GuideGrid::followClock);
    connect(titles, &GuideTitles::arrived, this, &GuideGrid::takeTitles);
    connect(titles, &GuideTitles::cleared, this, &GuideGrid::followClock);
    updateDays();
}

void GuideGrid::setGuide(Guide *guide)
{
    titles->setGuide(guide);
    updateDays();
    showNow();
}

void GuideGrid::setEntries(const ShownEntries &newEntries)
{
    entries = newEntries;
    row = std::min(std::max(row, 0), entries.count() - 1);
    updateScrollBars();
    describeCurrent();
    viewport()->update();
}

QString GuideGrid::currentId() const
{
    return row >= 0 ? entries.at(row).id.toString() : QString();
}

std::optional<GuideProgramme> GuideGrid::currentProgramme() const
{
    const QList<GuideProgramme> programmes = currentSchedule(0).programmes;
    const qsizetype index = programmeAt(programmes, time);
    return index >= 0 ? std::optional(programmes.at(index)) : std::nullopt;
}

bool GuideGrid::isCurrentInArchive() const
{
    const std::optional<GuideProgramme> programme = currentProgramme();
    const qint64 now = currentTime();
    return programme && programme->stop <= now &&
           archiveHolds(currentSchedule(0).entry.catchUp,
                        {programme->start, programme->stop, QString(), now});
}

void GuideGrid::setCurrentRow(int newRow)
{
    makeCurrent(newRow, time);
}

void GuideGrid::showNow()
{
    const qint64 now = currentTime();
    horizontalScrollBar()->setValue(gridLayout().scrolledToTime(halfHourBefore(now, zone)));
    makeCurrent(row, now);
}

QList<QDate> GuideGrid::days() const
{
    QList<QDate> result;
    const QDate last = dayOf(end - 1, zone);
    for (QDate day = dayOf(begin, zone); day <= last; day = day.addDays(1)) {
        result.append(day);
    }
    return result;
}

void GuideGrid::showDay(const QDate &day)
{
    moveDays(static_cast<int>(shownDay().daysTo(day)));
}

QDate GuideGrid::shownDay() const
{
    return dayOf(gridLayout().firstTime(), zone);
}

GuideGridLayout GuideGrid::gridLayout() const
{
    constexpr int narrowestNames = 80;
    constexpr int charactersOfNames = 24;
    constexpr int charactersOfAnHour = 32;
    constexpr int padding = 12;
    const QFontMetrics metrics = fontMetrics();
    const int character = metrics.averageCharWidth();
    GuideGridLayout layout;
    layout.viewport = viewport()->size();
    // A narrow window leaves the cells two thirds.
    layout.namesWidth =
        std::clamp(layout.viewport.width() / 3, narrowestNames, charactersOfNames * character);
    layout.headerHeight = metrics.height() + padding;
    layout.rowHeight = metrics.height() + 2 * padding;
    layout.hourWidth = charactersOfAnHour * character;
    layout.rows = entries.count();
    layout.begin = begin;
    layout.end = end;
    layout.scrolledX = horizontalScrollBar()->value();
    layout.scrolledY = verticalScrollBar()->value();
    return layout;
}

void GuideGrid::takeTitles()
{
    updateDays();
    describeCurrent();
    // Mostly they are of rows beside the visible ones.
    if (awaitsTitles) {
        awaitsTitles = false;
        viewport()->update();
    }
}

void GuideGrid::followClock()
{
    updateDays();
    describeCurrent();
    viewport()->update();
}

void GuideGrid::updateDays()
{
    const qint64 now = currentTime();
    const QDate oldest = dayOf(now - titles->archiveReach(), zone);
    const qint64 newBegin = startOfDay(oldest, zone);
    const QDate today = dayOf(now, zone);
    const QDate newest =
        titles->newest() > 0 ? dayOf(titles->newest(), zone) : today.addDays(usualDaysAhead);
    const QDate last = std::clamp(newest, today, today.addDays(mostDaysAhead));
    const qint64 newEnd = startOfDay(last.addDays(1), zone);
    if (newBegin == begin && newEnd == end) {
        return;
    }
    const qint64 first = begin == 0 ? now : gridLayout().firstTime();
    begin = newBegin;
    end = newEnd;
    updateScrollBars();
    horizontalScrollBar()->setValue(gridLayout().scrolledToTime(first));
    Q_EMIT daysChanged();
}

void GuideGrid::updateScrollBars()
{
    const GuideGridLayout layout = gridLayout();
    constexpr int stepsPerHour = 6;
    horizontalScrollBar()->setRange(0, layout.mostX());
    horizontalScrollBar()->setPageStep(layout.cells().width());
    horizontalScrollBar()->setSingleStep(layout.hourWidth / stepsPerHour);
    verticalScrollBar()->setRange(0, layout.mostY());
    verticalScrollBar()->setPageStep(layout.cells().height());
    verticalScrollBar()->setSingleStep(layout.rowHeight);
}

/// Tells a screen reader what the current cell is.
void GuideGrid::describeCurrent()
{
    QStringList parts;
    if (row >= 0) {
        parts << entries.at(row).name;
    }
    if (const std::optional<GuideProgramme> programme = currentProgramme()) {
        parts << programme->title << spanText(*programme, zone);
        if (isCurrentInArchive()) {
            parts << tr("in the archive");
        }
    } else if (row >= 0) {
        parts << clockText(time, zone);
    }
    const QString description = parts.join(QLatin1String(", "));
    if (description != accessibleDescription()) {
        setAccessibleDescription(description);
        Q_EMIT currentChanged();
    }
}

void GuideGrid::resizeEvent(QResizeEvent * /*event*/)
{
    updateScrollBars();
}

void GuideGrid::scrollContentsBy(int dx, int dy)
{
    if (dx == 0) {
        const int header = gridLayout().headerHeight;
        viewport()->scroll(0, dy, viewport()->rect().adjusted(0, header, 0, 0));
    } else {
        // Titles stay at the visible edge.
        viewport()->update();
        Q_EMIT daysChanged();
    }
}

void GuideGrid::changeEvent(QEvent *event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        const qint64 first = gridLayout().firstTime();
        updateScrollBars();
        horizontalScrollBar()->setValue(gridLayout().scrolledToTime(first));
    }
}

void GuideGrid::showEvent(QShowEvent *event)
{
    QAbstractScrollArea::showEvent(event);
    followClock();
    clock.start();
}

void GuideGrid::hideEvent(QHideEvent *event)
{
    QAbstractScrollArea::hideEvent(event);
    clock.stop();
}

/// To another channel, at a time that shows.
void GuideGrid::moveRows(int distance)
{
    const GuideGridLayout layout = gridLayout();
    const qint64 last = std::max(layout.firstTime(), layout.lastTime() - 1);
    makeCurrent(row + distance, std::clamp(time, layout.firstTime(), last));
}

void GuideGrid::moveTime(bool forwards)
{
    constexpr qint64 hoursAround = 6;
    const QList<GuideProgramme> programmes = currentSchedule(hoursAround * 3600).programmes;
    makeCurrent(row, forwards ? timeOfNext(programmes, time, zone)
                              : timeOfPrevious(programmes, time, zone));
    scrollToCurrent();
}

void GuideGrid::moveDays(int days)
{
    const qint64 first = daysLater(gridLayout().firstTime(), days, zone);
    horizontalScrollBar()->setValue(gridLayout().scrolledToTime(first));
    makeCurrent(row, daysLater(time, days, zone));
}

void GuideGrid::makeCurrent(int newRow, qint64 newTime)
{
    row = std::min(std::max(newRow, 0), entries.count() - 1);
    time = std::clamp(newTime, begin, end - 1);
    if (row >= 0) {
        verticalScrollBar()->setValue(gridLayout().scrolledToRow(row));
    }
    describeCurrent();
    viewport()->update();
}

void GuideGrid::scrollToCurrent()
{
    const Span span = currentSpan();
    horizontalScrollBar()->setValue(gridLayout().scrolledToSpan(span.start, span.stop));
}

void GuideGrid::activateCurrent()
{
    if (row < 0) {
        return;
    }
    // A copy: who receives it may show other entries.
    const MediaItem item = entries.at(row);
    const std::optional<GuideProgramme> programme = currentProgramme();
    const qint64 now = currentTime();
    if (!programme || (programme->start <= now && now < programme->stop)) {
        Q_EMIT activated(item);
    } else {
        Q_EMIT programmeActivated(item, *programme);
    }
}

/// Of the current channel, around the current time.
GuideSchedule GuideGrid::currentSchedule(qint64 around) const
{
    if (row < 0) {
        return {};
    }
    return titles->schedule(currentId(), time - around, time + around);
}

/// What the current cell reaches over; in a gap of the guide, half an hour of the clock.
GuideGrid::Span GuideGrid::currentSpan() const
{
    if (const std::optional<GuideProgramme> programme = currentProgramme()) {
        return {programme->start, programme->stop};
    }
    return {halfHourBefore(time, zone), timeOfNext({}, time, zone)};
}
