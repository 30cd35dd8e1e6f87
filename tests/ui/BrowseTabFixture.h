#pragma once

#include "model/CatalogSection.h"
#include "ui/BrowseTab.h"

#include <QSignalSpy>

class QAbstractItemView;
class QBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

/// A tab on screen, with the categories "News" and "Sport" and four entries whose orders by name,
/// date and rating differ.
struct BrowseTabFixture
{
    explicit BrowseTabFixture(CatalogSection section = CatalogSection::Movie);

    /// The widget whose object name is the tab's prefix and this.
    template <typename Widget>
    Widget &part(const char *suffix)
    {
        return *tab.findChild<Widget *>(QString::fromLatin1(spec.prefix) +
                                        QString::fromLatin1(suffix));
    }
    QWidget *page(int index);
    QBoxLayout &pageLayout(int index);
    QLabel &categoryLabel();
    QPushButton &backButton();
    QString title();
    /// The names that the view shows, from top to bottom.
    QStringList names() const;
    QString activatedName() const;
    void openCategory(int row);
    static void click(QAbstractItemView &list, int row);
    static void press(QAbstractItemView &list, int row, Qt::Key key);

    const BrowseTabSpec &spec;
    BrowseTab tab;
    QListWidget &categoryList;
    QLineEdit &allSearch;
    QLineEdit &search;
    QAbstractItemView &view;
    QSignalSpy refills{&tab, &BrowseTab::posterGridFilled};
    QSignalSpy activations{&tab, &BrowseTab::activated};
};

/// The icon that stands in for posters.
const QIcon &placeholder();
MediaItem film(const QString &name, const QString &category = {}, double rating = 0,
               qint64 added = 0);
