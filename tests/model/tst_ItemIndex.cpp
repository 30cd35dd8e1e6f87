// ItemIndex gives what filtering and sorting give, whether or not its order was prepared.

#include "fakeprovider/CatalogGenerator.h"
#include "model/ItemFilter.h"
#include "model/ItemIndex.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QList<MediaItem> filteredAndSorted(const QList<MediaItem> &items, const QString &categoryId,
                                   const QString &query, const QString &sortKey)
{
    QList<MediaItem> filtered = applyFilter(items, categoryId, query);
    sortItems(filtered, query, sortKey);
    return filtered;
}

QList<MediaItem> selected(ItemIndex &index, const QString &categoryId, const QString &query,
                          const QString &sortKey)
{
    QList<MediaItem> found;
    for (const int row : index.select(categoryId, query, sortKey)) {
        found << index.items().at(row);
    }
    return found;
}

/// Movies of which many share a name, a rating or a date.
QList<MediaItem> moviesWithTies(quint32 seed)
{
    QRandomGenerator random(seed);
    QList<MediaItem> movies = CatalogGenerator(seed).movies(300, 4);
    for (MediaItem &movie : movies) {
        movie.rating = random.bounded(4);
        movie.addedAt = random.bounded(5);
        if (random.bounded(3) == 0) {
            movie.name = movies.at(random.bounded(20)).name.toString().toUpper();
        }
    }
    return movies;
}

} // namespace

class tst_ItemIndex : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameAsFilterAndSort();
    void withoutAQueryAnEmptyNameIsLikeAnyOther();
};

void tst_ItemIndex::sameAsFilterAndSort()
{
    const QList<MediaItem> movies = moviesWithTies(4);
    ItemIndex index(movies);
    index.prepareOrder(u"name"_s);
    for (const QString &query :
         {u""_s, u"e"_s, u"news"_s, u"the"_s, u"24"_s, u"ü"_s, u"no such"_s}) {
        for (const QString &category : {u""_s, u"2"_s, u"9"_s}) {
            for (const QString &key : {u"name"_s, u"added"_s, u"rating"_s, u"other"_s}) {
                const QList<MediaItem> expected = filteredAndSorted(movies, category, query, key);
                QCOMPARE(selected(index, category, query, key), expected);
            }
        }
    }
}

void tst_ItemIndex::withoutAQueryAnEmptyNameIsLikeAnyOther()
{
    QList<MediaItem> movies(2);
    movies[0].name = u"News"_s;
    movies[0].rating = 9;
    QCOMPARE(ItemIndex(movies).select({}, {}, u"rating"_s), QList<int>({0, 1}));
}

VANTIRO_TEST_GUILESS_MAIN(tst_ItemIndex)
#include "tst_ItemIndex.moc"
