#include "ui/GuideSearchList.h"

#include "guide/Guide.h"
#include "ui/ActivateKeys.h"
#include "ui/GuideTexts.h"

#include <QDateTime>
#include <QHeaderView>
#include <QPointer>

namespace {

constexpr int mostHits = 200;

enum Column
{
    WhenColumn,
    TitleColumn,
    ChannelColumn,
    ColumnCount
};

} // namespace

GuideSearchList::GuideSearchList(QWidget *parent)
    : QTableWidget(0, ColumnCount, parent)
{
    setAccessibleName(tr("Programmes found"));
    setHorizontalHeaderLabels({tr("Time"), tr("Programme"), tr("Channel")});
    horizontalHeader()->setSectionResizeMode(WhenColumn, QHeaderView::ResizeToContents);
    horizontalHeader()->setSectionResizeMode(TitleColumn, QHeaderView::Stretch);
    horizontalHeader()->setSectionResizeMode(ChannelColumn, QHeaderView::Stretch);
    verticalHeader()->hide();
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    // Tab leaves the list instead of moving from cell to cell.
    setTabKeyNavigation(false);
    connect(this, &QTableWidget::cellDoubleClicked, this, &GuideSearchList::activateCurrent);
    addActivateKeyShortcuts(this, this, [this] { activateCurrent(); });
}

void GuideSearchList::setGuide(Guide *newGuide)
{
    if (guide != nullptr) {
        disconnect(guide, nullptr, this, nullptr);
    }
    guide = newGuide;
    if (guide != nullptr) {
        connect(guide, &Guide::changed, this, [this] { search(wanted); });
    }
    search(wanted);
}

void GuideSearchList::search(const QString &text)
{
    wanted = text;
    if (text.isEmpty() || guide == nullptr || !guide->isOpen()) {
        showHits({});
        return;
    }
    guide->search(text, QDateTime::currentSecsSinceEpoch(), mostHits,
                  [context = QPointer(this), text](const QList<GuideHit> &found) {
                      GuideSearchList *self = context;
                      if (self != nullptr && self->wanted == text) {
                          self->showHits(found);
                      }
                  });
}

void GuideSearchList::showHits(const QList<GuideHit> &found)
{
    hits = found;
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    setRowCount(static_cast<int>(hits.size()));
    for (int row = 0; row < rowCount(); ++row) {
        const GuideHit &hit = hits.at(row);
        setItem(row, WhenColumn, new QTableWidgetItem(whenText(hit.programme.start, now, zone)));
        setItem(row, TitleColumn, new QTableWidgetItem(hit.programme.title));
        setItem(row, ChannelColumn, new QTableWidgetItem(hit.entryName));
    }
    scrollToTop();
    setCurrentCell(hits.isEmpty() ? -1 : 0, TitleColumn);
    Q_EMIT answered();
}

void GuideSearchList::activateCurrent()
{
    if (currentRow() < 0 || currentRow() >= hits.size()) {
        return;
    }
    // A copy: who receives it may search for something else.
    const GuideHit hit = hits.at(currentRow());
    if (hit.programme.start <= QDateTime::currentSecsSinceEpoch()) {
        Q_EMIT entryActivated(hit.entryId);
    } else {
        Q_EMIT scheduleRequested(hit.entryId, hit.programme);
    }
}
