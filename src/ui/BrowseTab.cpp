#include "ui/BrowseTab.h"

#include "guide/GuideRecords.h"
#include "model/ItemFilter.h"
#include "ui/ActivateKeys.h"
#include "ui/CategoryList.h"
#include "ui/ElidedComboBox.h"
#include "ui/ElidedLabel.h"
#include "ui/EntryTable.h"
#include "ui/GuideGrid.h"
#include "ui/GuideView.h"
#include "ui/PosterGrid.h"

#include <QBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedWidget>

#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

std::span<const BrowseTabSpec> browseTabSpecs()
{
    static constexpr BrowseTabSpec specs[] = {
        {.prefix = "live",
         .title = QT_TRANSLATE_NOOP("BrowseTab", "Live TV"),
         .searchAllText = QT_TRANSLATE_NOOP("BrowseTab", "Search all channels..."),
         .viewName = QT_TRANSLATE_NOOP("BrowseTab", "Channels"),
         .heading = QT_TRANSLATE_NOOP("BrowseTab", "Channel"),
         .forAccounts = true},
        {.prefix = "movie",
         .title = QT_TRANSLATE_NOOP("BrowseTab", "Movies"),
         .searchAllText = QT_TRANSLATE_NOOP("BrowseTab", "Search all movies..."),
         .viewName = QT_TRANSLATE_NOOP("BrowseTab", "Movies"),
         .forAccounts = true},
        {.prefix = "series",
         .title = QT_TRANSLATE_NOOP("BrowseTab", "TV Shows"),
         .searchAllText = QT_TRANSLATE_NOOP("BrowseTab", "Search all shows..."),
         .viewName = QT_TRANSLATE_NOOP("BrowseTab", "Shows"),
         .forAccounts = true},
        {.prefix = "channel",
         .title = QT_TRANSLATE_NOOP("BrowseTab", "Channels"),
         .searchAllText = QT_TRANSLATE_NOOP("BrowseTab", "Search all channels..."),
         .viewName = QT_TRANSLATE_NOOP("BrowseTab", "Channels"),
         .heading = QT_TRANSLATE_NOOP("BrowseTab", "Channel")},
    };
    return specs;
}

BrowseTab::BrowseTab(const BrowseTabSpec &spec, PosterStore *posterStore, QWidget *parent)
    : QWidget(parent)
    , tabTitle(tr(spec.title))
    , forAccounts(spec.forAccounts)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    stack = new QStackedWidget;
    layout->addWidget(stack);
    QWidget *categoryPage = buildCategoryPage(spec);
    QWidget *itemsPage = buildItemsPage(spec);
    stack->addWidget(categoryPage);
    stack->addWidget(itemsPage);
    buildView(spec, posterStore);
    moveViewTo(itemsPage);
    nameWidgets(QString::fromLatin1(spec.prefix));
    connectSearches();
    connectLists();
}

QWidget *BrowseTab::buildCategoryPage(const BrowseTabSpec &spec)
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    allSearch = new QLineEdit;
    allSearch->setPlaceholderText(tr(spec.searchAllText));
    allSearch->setAccessibleName(allSearch->placeholderText());
    categoryLabel = new QLabel(tr("Select a category:"));
    categoryList = new CategoryList;
    categoryList->setAccessibleName(tr("Categories"));
    layout->addWidget(allSearch);
    layout->addWidget(categoryLabel);
    layout->addWidget(categoryList, 1);
    return page;
}

QWidget *BrowseTab::buildItemsPage(const BrowseTabSpec &spec)
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->addLayout(buildTitleRow());
    search = new QLineEdit;
    search->setPlaceholderText(tr("Search..."));
    search->setAccessibleName(search->placeholderText());
    if (spec.heading != nullptr) {
        layout->addWidget(search);
        return page;
    }
    sortCombo = new ElidedComboBox;
    sortCombo->setAccessibleName(tr("Sort by"));
    sortCombo->addItem(tr("Name (A-Z)"), u"name"_s);
    sortCombo->addItem(tr("Recently Added"), u"added"_s);
    sortCombo->addItem(tr("Rating"), u"rating"_s);
    auto *searchRow = new QHBoxLayout;
    searchRow->addWidget(search, 1);
    searchRow->addWidget(sortCombo, 0);
    layout->addLayout(searchRow);
    return page;
}

QBoxLayout *BrowseTab::buildTitleRow()
{
    auto *back = new QPushButton(tr("< Back to Categories"));
    connect(back, &QPushButton::clicked, this, [this] { showPage(BrowsePage::Categories); });
    titleLabel = new ElidedLabel;
    QFont font = titleLabel->font();
    font.setWeight(QFont::Bold);
    titleLabel->setFont(font);
    auto *row = new QHBoxLayout;
    row->addWidget(back, 0);
    row->addWidget(titleLabel, 1);
    return row;
}

void BrowseTab::buildView(const BrowseTabSpec &spec, PosterStore *posterStore)
{
    if (spec.heading != nullptr) {
        table = new EntryTable(tr(spec.heading));
        view = table;
    } else {
        posterList = new QListWidget;
        posterGrid = new PosterGrid(posterList, posterStore);
        view = posterList;
    }
    view->setAccessibleName(tr(spec.viewName));
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
}

void BrowseTab::nameWidgets(const QString &prefix)
{
    setObjectName(prefix + "Tab"_L1);
    stack->setObjectName(prefix + "Stack"_L1);
    categoryList->setObjectName(prefix + "CategoryList"_L1);
    allSearch->setObjectName(prefix + "AllSearch"_L1);
    titleLabel->setObjectName(prefix + "TitleLabel"_L1);
    search->setObjectName(prefix + "Search"_L1);
    if (table != nullptr) {
        table->setObjectName(prefix + "Table"_L1);
    } else {
        posterList->setObjectName(prefix + "PosterList"_L1);
        sortCombo->setObjectName(prefix + "SortCombo"_L1);
    }
}

void BrowseTab::connectSearches()
{
    connect(stack, &QStackedWidget::currentChanged, this, &BrowseTab::placeViewOn);
    connect(allSearch, &QLineEdit::textChanged, this, &BrowseTab::searchAllCategories);
    connect(search, &QLineEdit::textChanged, this, &BrowseTab::refilter);
    if (sortCombo != nullptr) {
        connect(sortCombo, &QComboBox::currentIndexChanged, this, &BrowseTab::refilter);
        connect(sortCombo, &QComboBox::currentIndexChanged, this, &BrowseTab::sortOrderChanged);
    }
}

void BrowseTab::connectLists()
{
    connect(categoryList, &QListWidget::itemClicked, this, &BrowseTab::selectCategory);
    addActivateKeyShortcuts(categoryList, this,
                            [this] { selectCategory(categoryList->currentItem()); });
    if (table != nullptr) {
        connect(table, &QTableWidget::cellClicked, this, &BrowseTab::activateRow);
    } else {
        connect(posterList, &QListWidget::itemClicked, this,
                [this](QListWidgetItem *item) { activateRow(posterList->row(item)); });
    }
    addActivateKeyShortcuts(view, this, [this] { activateRow(view->currentIndex().row()); });
}

QString BrowseTab::sortOrder() const
{
    return sortCombo != nullptr ? sortCombo->currentData().toString() : QString();
}

void BrowseTab::setSortOrder(const QString &order)
{
    const int index = sortCombo != nullptr ? sortCombo->findData(order) : -1;
    if (index >= 0) {
        sortCombo->setCurrentIndex(index);
    }
}

std::optional<OnNow> BrowseTab::onNow(const MediaItem &channel) const
{
    return table->onNow(channel);
}

void BrowseTab::setCategories(const QList<Category> &categories)
{
    categoryList->setCategories(categories);
}

void BrowseTab::setItems(const ItemIndex &items)
{
    entries = items;
    noteHiddenRows();
    refilter();
}

void BrowseTab::reset()
{
    showPage(BrowsePage::Categories);
    entries = {};
    noteHiddenRows();
    categoryId.clear();
    collection = Collection::None;
    categoryList->clearSelection();
    titleLabel->clear();
    allSearch->clear();
    search->clear();
}

void BrowseTab::clear()
{
    reset();
    categoryList->clearCategories();
    refilter();
    // Clearing a search has set the title to that of all categories.
    titleLabel->clear();
}

void BrowseTab::addPage(QWidget *page)
{
    stack->addWidget(page);
}

void BrowseTab::showPage(int page)
{
    stack->setCurrentIndex(page);
}

int BrowseTab::currentPage() const
{
    return stack->currentIndex();
}

void BrowseTab::selectCategory(const QListWidgetItem *item)
{
    if (item == nullptr) {
        return;
    }
    categoryId = item->data(Qt::UserRole).toString();
    collection = CategoryList::collectionOf(*item);
    titleLabel->setText(item->text());
    refilter();
    showPage(BrowsePage::Items);
}

void BrowseTab::refilter()
{
    showEntries({entries.items(), filteredEntries()});
}

QList<int> BrowseTab::filteredEntries()
{
    if (collection != Collection::None) {
        return collectionRows();
    }
    const QString query = search->text();
    QList<int> rows = table != nullptr
                          ? filteredRows(entries.items(), categoryId, query)
                          : entries.select(categoryId, query, sortCombo->currentData().toString());
    if (categoryId.isEmpty()) {
        dropHidden(rows);
    }
    return rows;
}

void BrowseTab::showEntries(const ShownEntries &entriesToShow)
{
    // The view's items show these until they are filled again.
    ShownEntries previous = shown;
    shown = entriesToShow;
    updateOrdering();
    if (table != nullptr) {
        table->fill(shown);
    } else {
        posterGrid->fill(shown);
    }
    if (guideView != nullptr) {
        guideView->grid().setEntries(shown);
    }
    if (!previous.sharesListWith(shown)) {
        freeInBackground(std::move(previous));
    }
    Q_EMIT refilled();
}

void BrowseTab::activateRow(int row)
{
    if (row < 0 || row >= shown.count()) {
        return;
    }
    // A copy: a dialog that playing may open runs the event loop, in which the list can change.
    const MediaItem item = shown.at(row);
    if (collection == Collection::ContinueWatching) {
        Q_EMIT continued(item);
    } else {
        Q_EMIT activated(item);
    }
}

ShownEntries BrowseTab::entriesAround(const MediaItem &item, int &row) const
{
    row = currentRow();
    if (row >= 0 && row < shown.count() && shown.at(row).id == item.id) {
        return shown;
    }
    row = shown.rowOf(item.id);
    if (row >= 0) {
        return shown;
    }
    // It was not chosen from the rows that show.
    QList<int> all(entries.items().size());
    std::iota(all.begin(), all.end(), 0);
    const ShownEntries whole(entries.items(), all);
    row = whole.rowOf(item.id);
    return row >= 0 ? whole : ShownEntries();
}

void BrowseTab::searchAllCategories(const QString &text)
{
    showSearchResults(!text.isEmpty());
    categoryId.clear();
    collection = Collection::None;
    titleLabel->setText(text.isEmpty() ? tr("All Categories") : tr("Search: \"%1\"").arg(text));
    {
        const QSignalBlocker blocker(search);
        search->setText(text);
    }
    refilter();
}

/// Shows the results of a search over all categories on the category page, or its own list.
void BrowseTab::showSearchResults(bool searching)
{
    categoryLabel->setVisible(!searching);
    categoryList->setVisible(!searching);
    if (searching) {
        moveViewTo(stack->widget(BrowsePage::Categories));
    }
    setViewVisible(searching);
}

void BrowseTab::placeViewOn(int page)
{
    if (page == BrowsePage::Items) {
        moveViewTo(stack->widget(BrowsePage::Items));
        setViewVisible(true);
    } else if (page == BrowsePage::Categories) {
        showSearchResults(!allSearch->text().isEmpty());
    }
}

void BrowseTab::moveViewTo(QWidget *page)
{
    auto *layout = static_cast<QVBoxLayout *>(page->layout());
    if (view->parentWidget() != page) {
        layout->addWidget(view, 1);
    }
    if (guideView != nullptr && guideView->parentWidget() != page) {
        layout->addWidget(guideView, 1);
    }
}

/// Of the view, or of the guide that is chosen in its place.
void BrowseTab::setViewVisible(bool visible)
{
    const bool isGuide = showsGuide();
    view->setVisible(visible && !isGuide);
    if (guideView != nullptr) {
        guideView->setVisible(visible && isGuide);
    }
}
