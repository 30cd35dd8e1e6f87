#include "ui/BrowseTab.h"

#include "ui/ElidedLabel.h"
#include "ui/Thumbnails.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QCoreApplication>
#include <QHeaderView>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QStyledItemDelegate>
#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("BrowseTab", text);
}

/// The widgets that every tab has, while it is being built.
struct Skeleton
{
    QWidget *root = nullptr;
    QStackedWidget *stack = nullptr;
    QWidget *categoryPage = nullptr;
    QVBoxLayout *categoryLayout = nullptr;
    QLineEdit *allSearch = nullptr;
    QLabel *categoryLabel = nullptr;
    QListWidget *categoryList = nullptr;
    QWidget *itemsPage = nullptr;
    QVBoxLayout *itemsLayout = nullptr;
    QLabel *titleLabel = nullptr;
    QLineEdit *itemSearch = nullptr;
};

void buildCategoryPage(Skeleton &tab, const QString &kindWord)
{
    tab.categoryPage = new QWidget;
    tab.categoryLayout = new QVBoxLayout(tab.categoryPage);
    tab.allSearch = new QLineEdit;
    tab.allSearch->setPlaceholderText(translated("Search all %1s...").arg(kindWord.toLower()));
    tab.allSearch->setAccessibleName(tab.allSearch->placeholderText());
    tab.categoryLabel = new QLabel(translated("Select a category:"));
    tab.categoryList = new QListWidget;
    tab.categoryList->setAccessibleName(translated("Categories"));
    tab.categoryLayout->addWidget(tab.allSearch);
    tab.categoryLayout->addWidget(tab.categoryLabel);
    tab.categoryLayout->addWidget(tab.categoryList, 1);
}

void buildItemsPage(Skeleton &tab)
{
    tab.itemsPage = new QWidget;
    tab.itemsLayout = new QVBoxLayout(tab.itemsPage);
    auto *titleRow = new QHBoxLayout;
    auto *back = new QPushButton(translated("< Back to Categories"));
    tab.titleLabel = new ElidedLabel;
    QFont font = tab.titleLabel->font();
    font.setWeight(QFont::Bold);
    tab.titleLabel->setFont(font);
    titleRow->addWidget(back, 0);
    titleRow->addWidget(tab.titleLabel, 1);
    tab.itemsLayout->addLayout(titleRow);
    tab.itemSearch = new QLineEdit;
    tab.itemSearch->setPlaceholderText(translated("Search..."));
    tab.itemSearch->setAccessibleName(tab.itemSearch->placeholderText());
    QObject::connect(back, &QPushButton::clicked, tab.stack,
                     [stack = tab.stack] { stack->setCurrentIndex(BrowsePage::Categories); });
}

Skeleton beginSkeleton(QWidget *parent, const QString &kindWord)
{
    Skeleton tab;
    tab.root = new QWidget(parent);
    auto *layout = new QVBoxLayout(tab.root);
    layout->setContentsMargins(0, 0, 0, 0);
    tab.stack = new QStackedWidget;
    layout->addWidget(tab.stack);
    buildCategoryPage(tab, kindWord);
    buildItemsPage(tab);
    tab.stack->addWidget(tab.categoryPage);
    tab.stack->addWidget(tab.itemsPage);
    return tab;
}

/// Lets the one items view serve both pages: on the category page it shows the results of a search
/// over all categories, in place of the category list.
void shareItemsView(const Skeleton &tab, QWidget *view)
{
    tab.itemsLayout->addWidget(view, 1);
    const auto showOnCategoryPage = [tab, view](const QString &text) {
        const bool searching = !text.isEmpty();
        tab.categoryLabel->setVisible(!searching);
        tab.categoryList->setVisible(!searching);
        if (searching && view->parentWidget() != tab.categoryPage) {
            tab.categoryLayout->addWidget(view, 1);
        }
        view->setVisible(searching);
    };
    QObject::connect(tab.allSearch, &QLineEdit::textChanged, view, showOnCategoryPage);
    QObject::connect(tab.stack, &QStackedWidget::currentChanged, view,
                     [tab, view, showOnCategoryPage](int index) {
                         if (index == BrowsePage::Items) {
                             if (view->parentWidget() != tab.itemsPage) {
                                 tab.itemsLayout->addWidget(view, 1);
                             }
                             view->setVisible(true);
                         } else if (index == BrowsePage::Categories) {
                             showOnCategoryPage(tab.allSearch->text());
                         }
                     });
}

void storeShared(const Skeleton &tab, QStackedWidget **stack, QListWidget **categoryList,
                 QLineEdit **allSearch, QLabel **titleLabel, QLineEdit **itemSearch)
{
    *stack = tab.stack;
    *categoryList = tab.categoryList;
    *allSearch = tab.allSearch;
    *titleLabel = tab.titleLabel;
    *itemSearch = tab.itemSearch;
}

QTableWidget *makeTable(const QString &kindWord)
{
    auto *table = new QTableWidget;
    table->setColumnCount(1);
    table->setHorizontalHeaderLabels({kindWord});
    table->horizontalHeader()->setStretchLastSection(true);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->verticalHeader()->hide();
    // Tab leaves the table instead of walking its cells.
    table->setTabKeyNavigation(false);
    return table;
}

/// Keeps the place of a whole poster for each entry, whatever the size of its picture. The grid
/// takes the size of one item for all.
class PosterDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->decorationSize = posterSize;
    }
};

QListWidget *makePosterList()
{
    auto *list = new QListWidget;
    list->setViewMode(QListView::IconMode);
    list->setResizeMode(QListView::Adjust);
    list->setMovement(QListView::Static);
    list->setWrapping(true);
    list->setUniformItemSizes(true);
    list->setIconSize(posterSize);
    list->setItemDelegate(new PosterDelegate(list));
    list->setSpacing(10);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setFrameShape(QFrame::NoFrame);
    list->setWordWrap(true);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    return list;
}

QComboBox *makeSortCombo()
{
    auto *combo = new QComboBox;
    combo->setAccessibleName(translated("Sort by"));
    combo->addItem(translated("Name (A-Z)"), u"name"_s);
    combo->addItem(translated("Recently Added"), u"added"_s);
    combo->addItem(translated("Rating"), u"rating"_s);
    return combo;
}

} // namespace

QWidget *buildTabSkeleton(QWidget *parent, QStackedWidget **stack, QListWidget **categoryList,
                          QLineEdit **allSearch, QLabel **titleLabel, QLineEdit **itemSearch,
                          QTableWidget **table, const QString &kindWord)
{
    const Skeleton tab = beginSkeleton(parent, kindWord);
    tab.itemsLayout->addWidget(tab.itemSearch);
    *table = makeTable(kindWord);
    (*table)->setAccessibleName(translated("%1s").arg(kindWord));
    shareItemsView(tab, *table);
    storeShared(tab, stack, categoryList, allSearch, titleLabel, itemSearch);
    return tab.root;
}

QWidget *buildPosterTabSkeleton(QWidget *parent, QStackedWidget **stack, QListWidget **categoryList,
                                QLineEdit **allSearch, QLabel **titleLabel, QLineEdit **itemSearch,
                                QComboBox **sortCombo, QListWidget **posterList,
                                const QString &kindWord)
{
    const Skeleton tab = beginSkeleton(parent, kindWord);
    auto *searchRow = new QHBoxLayout;
    *sortCombo = makeSortCombo();
    searchRow->addWidget(tab.itemSearch, 1);
    searchRow->addWidget(*sortCombo, 0);
    tab.itemsLayout->addLayout(searchRow);
    *posterList = makePosterList();
    (*posterList)->setAccessibleName(translated("%1s").arg(kindWord));
    shareItemsView(tab, *posterList);
    storeShared(tab, stack, categoryList, allSearch, titleLabel, itemSearch);
    return tab.root;
}

void fillCategoryList(QListWidget *list, const QList<Category> &categories)
{
    list->clear();
    const auto add = [list](const QString &name, const QString &id) {
        auto *item = new QListWidgetItem(name);
        item->setData(Qt::UserRole, id);
        list->addItem(item);
    };
    add(translated("All Categories"), u""_s);
    for (const Category &category : categories) {
        add(category.name, category.id);
    }
}

void fillTable(QTableWidget *table, const QList<MediaItem> &items)
{
    table->setRowCount(static_cast<int>(items.size()));
    {
        // One update of the view for all rows instead of one for each.
        const QSignalBlocker blocker(table->model());
        for (int row = 0; row < table->rowCount(); ++row) {
            table->setItem(row, 0, new QTableWidgetItem(items.at(row).name));
        }
    }
    table->viewport()->update();
}

void fillPosterGrid(QListWidget *list, const QList<MediaItem> &items, const QIcon &placeholder)
{
    list->clear();
    for (const MediaItem &entry : items) {
        // Given to the list only when complete: a change of an item in a list is costly.
        auto *item = new QListWidgetItem(placeholder, entry.name);
        item->setTextAlignment(Qt::AlignHCenter | Qt::AlignTop);
        item->setData(PosterRole::IconUrl, entry.iconUrl);
        list->addItem(item);
    }
}

void wireCategorySearch(QLineEdit *allSearch, QString *categoryId, QLabel *titleLabel,
                        QLineEdit *itemSearch, QStackedWidget * /*stack*/,
                        const std::function<void()> &refilter)
{
    QObject::connect(allSearch, &QLineEdit::textChanged, itemSearch,
                     [categoryId, titleLabel, itemSearch, refilter](const QString &text) {
                         categoryId->clear();
                         titleLabel->setText(text.isEmpty()
                                                 ? translated("All Categories")
                                                 : translated("Search: \"%1\"").arg(text));
                         {
                             const QSignalBlocker blocker(itemSearch);
                             itemSearch->setText(text);
                         }
                         refilter();
                     });
}

void resetTabFilterState(QString &categoryId, QListWidget *categoryList, QLabel *titleLabel,
                         QLineEdit *allSearch, QLineEdit *itemSearch)
{
    categoryId.clear();
    categoryList->clearSelection();
    titleLabel->clear();
    allSearch->clear();
    itemSearch->clear();
}

void addActivateKeyShortcuts(QWidget *widget, QObject *context, const std::function<void()> &action)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *shortcut = new QShortcut(QKeySequence(key), widget);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        QObject::connect(shortcut, &QShortcut::activated, context, action);
    }
}
