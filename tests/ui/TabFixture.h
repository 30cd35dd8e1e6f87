#pragma once

#include "model/CatalogSection.h"
#include "support/TestMain.h"
#include "ui/BrowseTab.h"
#include "ui/PosterStore.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QStackedWidget>

using namespace Qt::StringLiterals; // for tests only

inline MediaItem film(const QString &name, const QString &category = {}, double rating = 0,
                      qint64 added = 0)
{
    MediaItem item;
    item.name = name;
    item.categoryId = category;
    item.rating = rating;
    item.addedAt = added;
    return item;
}

/// A tab on screen, with the categories "News" and "Sport" and four entries whose orders by name,
/// date and rating differ.
struct Tab
{
    explicit Tab(CatalogSection section)
        : spec(browseTabSpecs()[static_cast<size_t>(section)])
    {
        tab.setCategories({{u"n"_s, u"News"_s}, {u"s"_s, u"Sport"_s}});
        tab.setItems(QList{film(u"Sky News"_s, u"n"_s, 5, 30), film(u"Newsroom"_s, u"n"_s, 0, 10),
                           film(u"Arena"_s, u"s"_s, 9, 20), film(u"News"_s, u"s"_s, 7, 0)});
        tab.resize(600, 700);
        tab.show();
        if (!QTest::qWaitForWindowActive(&tab)) {
            qFatal("the tab does not become active");
        }
        refills.clear();
    }

    /// The widget whose object name is the tab's prefix and this.
    template <typename Widget>
    Widget &part(const QString &suffix)
    {
        return *tab.findChild<Widget *>(QString::fromLatin1(spec.prefix) + suffix);
    }
    QBoxLayout &pageLayout(int index)
    {
        return *qobject_cast<QVBoxLayout *>(stack.widget(index)->layout());
    }
    QStringList names() const
    {
        QStringList result;
        for (int row = 0; row < view.model()->rowCount(); ++row) {
            result << view.model()->index(row, 0).data().toString();
        }
        return result;
    }
    QString activatedName() const
    {
        return activations.last().constFirst().value<MediaItem>().name;
    }
    void openCategory(int row) { tab.selectCategory(categories.item(row)); }
    static void click(QAbstractItemView &list, int row)
    {
        const QRect rect = list.visualRect(list.model()->index(row, 0));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, rect.center());
    }
    static void press(QAbstractItemView &list, int row, Qt::Key key)
    {
        list.setFocus();
        list.setCurrentIndex(list.model()->index(row, 0));
        QTest::keyClick(&list, key);
    }

    const BrowseTabSpec &spec;
    PosterStore posters;
    BrowseTab tab{spec, &posters};
    QStackedWidget &stack = part<QStackedWidget>(u"Stack"_s);
    QListWidget &categories = part<QListWidget>(u"CategoryList"_s);
    QLabel &title = part<QLabel>(u"TitleLabel"_s);
    QLineEdit &allSearch = part<QLineEdit>(u"AllSearch"_s);
    QLineEdit &search = part<QLineEdit>(u"Search"_s);
    QAbstractItemView &view =
        part<QAbstractItemView>(spec.heading != nullptr ? u"Table"_s : u"PosterList"_s);
    QSignalSpy refills{&tab, &BrowseTab::refilled};
    QSignalSpy activations{&tab, &BrowseTab::activated};
};
