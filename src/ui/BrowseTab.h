#pragma once

#include "guide/GuideRecords.h"
#include "model/CatalogRecords.h"
#include "model/ItemIndex.h"
#include "ui/ShownEntries.h"
#include "ui/TabLibrary.h"

#include <QList>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>
#include <span>
#include <vector>

class CategoryList;
class EntryTable;
class Guide;
class GuideView;
class PosterGrid;
class PosterStore;
struct OnNow;

class QAbstractItemView;
class QBoxLayout;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QMenu;
class QModelIndex;
class QPushButton;
class QStackedWidget;

/// The pages of a tab's stack.
namespace BrowsePage {
inline constexpr int Categories = 0;
inline constexpr int Items = 1;
inline constexpr int Episodes = 2; ///< TV Shows only
} // namespace BrowsePage

/// What distinguishes one tab from the others. The texts are English; BrowseTab translates them.
struct BrowseTabSpec
{
    const char *prefix;            ///< of the widgets' object names: "live" names "liveStack"
    const char *title;             ///< on the tab bar
    const char *searchAllText;     ///< placeholder of the search over all categories
    const char *viewName;          ///< what a screen reader calls the table or grid
    const char *heading = nullptr; ///< of the table; a tab without one shows a grid of posters
    bool forAccounts = false;      ///< shown for accounts, otherwise for playlists
};

/// The tabs of the window, in the order of CatalogSection.
std::span<const BrowseTabSpec> browseTabSpecs();

/// One tab: its categories, its entries, and the searches, filters and orders over them.
///
/// The entries show in one view, a table or a grid of posters, which both pages share: a search
/// over all categories shows its results on the category page, in place of the category list.
class BrowseTab final : public QWidget
{
    Q_OBJECT

public:
    /// The store gives a grid its posters, and must outlive the tab.
    BrowseTab(const BrowseTabSpec &spec, PosterStore *posterStore, QWidget *parent = nullptr);

    /// Shows what the library keeps for this tab: lists beside the categories, marks, menus. Once,
    /// before the tab is filled; not owned.
    void setLibrary(TabLibrary *library);

    /// Shows what runs on the channels, by this guide, and offers the guide in place of the table.
    /// Null for none, as at first. Of a tab with a table only; not owned: it must outlive the tab,
    /// or be replaced.
    void setGuide(Guide *guide);
    /// What is known to run on a channel that shows; nothing without a guide.
    std::optional<OnNow> onNow(const MediaItem &channel) const;
    /// Called with the context menu of an entry, to add to it.
    using EntryMenuExtension = std::function<void(QMenu &, const MediaItem &)>;
    void setEntryMenuExtension(const EntryMenuExtension &extension) { extendMenu = extension; }

    QString title() const { return tabTitle; }
    /// True when the tab is for accounts, false when it is for playlists.
    bool isForAccounts() const { return forAccounts; }

    /// Replaces the categories. The entries stay as they are.
    void setCategories(const QList<Category> &categories);
    /// Replaces the entries and shows those that pass the category and the search.
    void setItems(const ItemIndex &items);
    /// Returns to the category page and drops the entries, the category choice and both searches.
    /// The view keeps its rows until the next refilter; clearing a search that held text refilters.
    void reset();
    /// As reset(), and also empties the category list and the view: the state before the first
    /// source.
    void clear();

    /// Adds a page behind the items page.
    void addPage(QWidget *page);
    void showPage(int page);
    int currentPage() const;

    /// The first entry with this id, whether it shows or not.
    std::optional<MediaItem> entryOf(const QString &id) const;

    /// The list that an entry was chosen from, and its row there: the rows that show, or all
    /// entries of the tab where it is not among them. Empty, with the row -1, for no entry of the
    /// tab.
    ShownEntries entriesAround(const MediaItem &item, int &row) const;

    /// Shows the entries of that row's category. A null item changes nothing.
    void selectCategory(const QListWidgetItem *item);
    /// The order that the user chose; empty in a tab with a table, which has none.
    QString sortOrder() const;
    /// Orders by one that sortOrder() told; any other changes nothing.
    void setSortOrder(const QString &order);
    /// Computes again which entries show, and fills the view with them.
    void refilter();
    /// Emits activated() for a row of the view; a row that has no entry does nothing.
    void activateRow(int row);
    /// Whether the view has the focus, so that keys concern its current row.
    bool viewHasFocus() const;
    /// Adds the entry of the current row to the favorites, or removes it.
    void toggleFavorite();

Q_SIGNALS:
    /// The user chose an entry.
    void activated(const MediaItem &item);
    /// The user chose an entry in "Continue Watching".
    void continued(const MediaItem &item);
    /// The user chose a programme in the guide that does not run now.
    void programmeActivated(const MediaItem &item, const GuideProgramme &programme);
    /// The user chose a programme to come that a search in the guide has found.
    void scheduleRequested(const MediaItem &item, const GuideProgramme &programme);
    void sortOrderChanged();
    /// The view shows the entries that pass the category and the search now.
    void refilled();

private:
    QWidget *buildCategoryPage(const BrowseTabSpec &spec);
    QWidget *buildItemsPage(const BrowseTabSpec &spec);
    QBoxLayout *buildTitleRow();
    void buildView(const BrowseTabSpec &spec, PosterStore *posterStore);
    void nameWidgets(const QString &prefix);
    void connectSearches();
    void connectLists();

    void searchAllCategories(const QString &text);
    void showSearchResults(bool searching);
    void placeViewOn(int page);
    void moveViewTo(QWidget *page);
    void setViewVisible(bool visible);
    int currentRow() const;
    QList<int> filteredEntries();
    void showEntries(const ShownEntries &entriesToShow);

    // ---- BrowseTabGuide.cpp: the guide in place of the table ----
    bool showsGuide() const;
    void buildGuide();
    QPushButton *addGuideButton(QLineEdit *beside, const QString &suffix);
    void connectGuide();
    void chooseGuide(bool choose);
    void openGuide();
    void updateGuide();
    void openGuideMenu(const QPoint &globalPlace);

    // ---- BrowseTabLibrary.cpp: what the user keeps ----
    QList<int> collectionRows();
    void showCollections(Collection changed);
    void showHiddenCategories();
    void noteHiddenRows();
    void dropHidden(QList<int> &rows) const;
    void updateOrdering();
    void moveFavorite(int from, int to);
    void fillEntryMenu(QMenu &menu, const QModelIndex &index);

    QString tabTitle;
    bool forAccounts;

    QStackedWidget *stack = nullptr;
    QLineEdit *allSearch = nullptr;
    QLabel *categoryLabel = nullptr;
    CategoryList *categoryList = nullptr;
    QLabel *titleLabel = nullptr;
    QLineEdit *search = nullptr;
    QComboBox *sortCombo = nullptr;    ///< with posters only
    EntryTable *table = nullptr;       ///< null with posters
    QListWidget *posterList = nullptr; ///< null with a table
    PosterGrid *posterGrid = nullptr;  ///< of posterList
    QAbstractItemView *view = nullptr; ///< whichever of the two there is

    Guide *guide = nullptr;
    GuideView *guideView = nullptr; ///< null before the first guide
    QPushButton *categoryPageGuideButton = nullptr;
    QPushButton *itemsPageGuideButton = nullptr;
    bool guideChosen = false; ///< in place of the table

    QString categoryId;                       ///< of the chosen category; empty for all
    Collection collection = Collection::None; ///< shown in place of a category
    TabLibrary *kept = nullptr;               ///< null in a tab without a library
    EntryMenuExtension extendMenu;
    ItemIndex entries;
    std::vector<bool> isHiddenRow; ///< of the entries; empty when none is hidden
    ShownEntries shown;            ///< by the view
};
