#include "BrowseTabFixture.h"

#include "ui/Thumbnails.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>

using namespace Qt::StringLiterals;

BrowseTabFixture::BrowseTabFixture(CatalogSection section)
    : spec(browseTabSpecs()[static_cast<size_t>(section)])
    , tab(spec, placeholder())
    , categoryList(part<QListWidget>("CategoryList"))
    , allSearch(part<QLineEdit>("AllSearch"))
    , search(part<QLineEdit>("Search"))
    , view(part<QAbstractItemView>(spec.heading != nullptr ? "Table" : "PosterList"))
{
    tab.setCategories({{u"n"_s, u"News"_s}, {u"s"_s, u"Sport"_s}});
    tab.setItems({film(u"Sky News"_s, u"n"_s, 5, 30), film(u"Newsroom"_s, u"n"_s, 0, 10),
                  film(u"Arena"_s, u"s"_s, 9, 20), film(u"News"_s, u"s"_s, 7, 0)});
    refills.clear();
    tab.resize(600, 700);
    tab.show();
    if (!QTest::qWaitForWindowActive(&tab)) {
        qFatal("BrowseTabFixture: the tab does not become active");
    }
}

QWidget *BrowseTabFixture::page(int index)
{
    return part<QStackedWidget>("Stack").widget(index);
}

QBoxLayout &BrowseTabFixture::pageLayout(int index)
{
    return *qobject_cast<QVBoxLayout *>(page(index)->layout());
}

QLabel &BrowseTabFixture::categoryLabel()
{
    return *qobject_cast<QLabel *>(pageLayout(BrowsePage::Categories).itemAt(1)->widget());
}

QPushButton &BrowseTabFixture::backButton()
{
    return *page(BrowsePage::Items)->findChild<QPushButton *>();
}

QString BrowseTabFixture::title()
{
    return part<QLabel>("TitleLabel").text();
}

QStringList BrowseTabFixture::names() const
{
    QStringList result;
    for (int row = 0; row < view.model()->rowCount(); ++row) {
        result << view.model()->index(row, 0).data().toString();
    }
    return result;
}

QString BrowseTabFixture::activatedName() const
{
    return activations.last().constFirst().value<MediaItem>().name;
}

void BrowseTabFixture::openCategory(int row)
{
    tab.selectCategory(categoryList.item(row));
}

void BrowseTabFixture::click(QAbstractItemView &list, int row)
{
    const QRect rect = list.visualRect(list.model()->index(row, 0));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, rect.center());
}

void BrowseTabFixture::press(QAbstractItemView &list, int row, Qt::Key key)
{
    list.setFocus();
    list.setCurrentIndex(list.model()->index(row, 0));
    QTest::keyClick(&list, key);
}

const QIcon &placeholder()
{
    static const QIcon icon(makePlaceholderPoster());
    return icon;
}

MediaItem film(const QString &name, const QString &category, double rating, qint64 added)
{
    MediaItem item;
    item.name = name;
    item.categoryId = category;
    item.rating = rating;
    item.addedAt = added;
    return item;
}
