#include "guide/Guide.h"
#include "model/ItemIds.h"
#include "ui/BrowseTab.h"
#include "ui/CategoryList.h"
#include "ui/EntryTable.h"
#include "ui/GuideGrid.h"
#include "ui/GuideView.h"
#include "ui/RowMenu.h"

#include <QBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>

using namespace Qt::StringLiterals;

// The part of BrowseTab that shows the guide. Nothing of it is there before a tab gets a guide.

void BrowseTab::setGuide(Guide *newGuide)
{
    table->setGuide(newGuide);
    if (newGuide == guide) {
        return;
    }
    if (guideView == nullptr) {
        buildGuide();
    }
    if (guide != nullptr) {
        disconnect(guide, nullptr, this, nullptr);
    }
    guide = newGuide;
    if (guide != nullptr) {
        connect(guide, &Guide::changed, this, &BrowseTab::updateGuide);
    }
    guideView->setGuide(newGuide);
    updateGuide();
}

bool BrowseTab::showsGuide() const
{
    return guideChosen && guide != nullptr && guide->isOpen();
}

void BrowseTab::buildGuide()
{
    guideView = new GuideView;
    guideView->hide();
    categoryPageGuideButton = addGuideButton(allSearch, u"AllGuideButton"_s);
    itemsPageGuideButton = addGuideButton(search, u"GuideButton"_s);
    connectGuide();
    guideView->grid().setEntries(shown);
    moveViewTo(view->parentWidget());
}

/// Puts the button beside a search, in a row that takes the place of the search.
QPushButton *BrowseTab::addGuideButton(QLineEdit *beside, const QString &suffix)
{
    auto *page = static_cast<QBoxLayout *>(beside->parentWidget()->layout());
    const int place = page->indexOf(beside);
    page->removeWidget(beside);
    auto *row = new QHBoxLayout;
    page->insertLayout(place, row);
    row->addWidget(beside, 1);
    auto *button = new QPushButton(tr("Guide"));
    button->setObjectName(objectName().chopped(3) + suffix); // "liveTab" names "liveGuideButton"
    button->setToolTip(tr("Show the programme guide"));
    button->setCheckable(true);
    row->addWidget(button);
    QWidget::setTabOrder(beside, button);
    return button;
}

void BrowseTab::connectGuide()
{
    connect(itemsPageGuideButton, &QPushButton::clicked, this, &BrowseTab::chooseGuide);
    connect(categoryPageGuideButton, &QPushButton::clicked, this, &BrowseTab::openGuide);
    connect(allSearch, &QLineEdit::textChanged, this, &BrowseTab::updateGuide);
    connect(&guideView->grid(), &GuideGrid::activated, this, &BrowseTab::activated);
    connect(&guideView->grid(), &GuideGrid::programmeActivated, this,
            &BrowseTab::programmeActivated);
    connect(&guideView->grid(), &GuideGrid::contextMenuRequested, this, &BrowseTab::openGuideMenu);
    connect(guideView, &GuideView::foundEntryActivated, this, [this](const QString &id) {
        if (const std::optional<MediaItem> item = entryOf(id)) {
            Q_EMIT activated(*item);
        }
    });
    connect(guideView, &GuideView::scheduleRequested, this,
            [this](const QString &id, const GuideProgramme &programme) {
                if (const std::optional<MediaItem> item = entryOf(id)) {
                    Q_EMIT scheduleRequested(*item, programme);
                }
            });
    if (kept != nullptr) {
        guideView->grid().setMarks([this](const MediaItem &item) { return kept->markOf(item); });
        connect(kept, &TabLibrary::marksChanged, guideView->grid().viewport(),
                qOverload<>(&QWidget::update));
    }
}

void BrowseTab::chooseGuide(bool choose)
{
    guideChosen = choose;
    updateGuide();
}

/// The category page shows no entries before a search: the button leads to those of all categories.
void BrowseTab::openGuide()
{
    if (!allSearch->text().isEmpty()) {
        chooseGuide(!guideChosen);
        return;
    }
    chooseGuide(true);
    selectCategory(categoryList->item(0));
}

void BrowseTab::updateGuide()
{
    const bool isOffered = guide != nullptr && guide->isOpen();
    itemsPageGuideButton->setVisible(isOffered);
    categoryPageGuideButton->setVisible(isOffered);
    itemsPageGuideButton->setChecked(guideChosen);
    categoryPageGuideButton->setChecked(guideChosen && !allSearch->text().isEmpty());
    placeViewOn(currentPage());
}

void BrowseTab::openGuideMenu(const QPoint &globalPlace)
{
    const int row = guideView->grid().currentRow();
    // The table has the same rows; actions of the menu move its current one.
    table->setCurrentCell(row, 0);
    openRowMenu(&guideView->grid(), globalPlace,
                [&](QMenu &menu) { fillEntryMenu(menu, table->model()->index(row, 0)); });
}

std::optional<MediaItem> BrowseTab::entryOf(const QString &id) const
{
    const QList<int> rows = rowsOfIds(entries.items(), {id});
    return rows.isEmpty() ? std::nullopt : std::optional(entries.items().at(rows.constFirst()));
}
