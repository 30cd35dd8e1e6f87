#pragma once

#include "RowMenus.h"
#include "TabFixture.h"
#include "library/Library.h"
#include "ui/TabLibrary.h"

#include <QTemporaryDir>

#include <memory>

/// @file
/// What the tests of a tab with a library share.

Q_DECLARE_METATYPE(LibraryChange)

inline const QString source = u"Source"_s;

/// Entries of these names, in the category "News" or "Sport".
inline QList<MediaItem> numbered(const QStringList &names)
{
    QList<MediaItem> items;
    for (const QString &name : names) {
        MediaItem item = film(name, name.left(1) == u"N"_s ? u"n"_s : u"s"_s);
        item.id = u"id-"_s + name;
        items.append(item);
    }
    return items;
}

/// A tab with a library; its entries are News 1, News 2, Sport 1 and Sport 2.
struct KeptTab
{
    explicit KeptTab(CatalogSection section)
        : kind(entryKind(section))
        , tab(section)
        , kept(&library, section, nullptr)
    {
        tab.tab.setLibrary(&kept);
        tab.tab.setItems(items);
        kept.setSource(source);
    }

    LibraryEntry entry(int row) const { return libraryEntry(source, kind, items.at(row)); }
    QStringList categories() const
    {
        QStringList texts;
        for (int row = 0; row < tab.categories.count(); ++row)
            texts << tab.categories.item(row)->text();
        return texts;
    }
    void openList(const QString &name)
    {
        const qsizetype row = categories().indexOf(name);
        tab.tab.selectCategory(row < 0 ? nullptr : tab.categories.item(static_cast<int>(row)));
    }
    bool choose(int row, const QString &action)
    {
        return RowMenus::choose(RowMenus::openByMouse(tab.view, row), action);
    }
    QString describedRow(int row) const
    {
        return tab.view.model()->index(row, 0).data(Qt::AccessibleDescriptionRole).toString();
    }

    const QList<MediaItem> items = numbered({u"News 1"_s, u"News 2"_s, u"Sport 1"_s, u"Sport 2"_s});
    EntryKind kind;
    QTemporaryDir folder;
    Library library{folder.filePath(u"library.sqlite"_s), nullptr};
    Tab tab;
    TabLibrary kept;
    QSignalSpy undos{&kept, &TabLibrary::undoOffered};
};

/// One test's tab, for each of the four sections. A test class that derives from it calls
/// addSections() in its initTestCase_data() and reset() in its init().
class KeptTabs
{
protected:
    static void addSections()
    {
        QTest::addColumn<CatalogSection>("section");
        QTest::newRow("Live TV") << CatalogSection::Live;
        QTest::newRow("Movies") << CatalogSection::Movie;
        QTest::newRow("TV Shows") << CatalogSection::Series;
        QTest::newRow("Channels") << CatalogSection::Channel;
    }
    void reset()
    {
        QFETCH_GLOBAL(CatalogSection, section);
        kept = std::make_unique<KeptTab>(section);
    }
    bool isTable() const { return kept->tab.spec.heading != nullptr; }

    std::unique_ptr<KeptTab> kept;
    /// The categories while the library is empty.
    const QStringList plain{u"All Categories"_s, u"News"_s, u"Sport"_s};
};
