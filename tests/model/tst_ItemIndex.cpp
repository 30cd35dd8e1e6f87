// ItemIndex gives what filtering and sorting give, in any order of calls.

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

QList<MediaItem> selected(ItemIndex &index, const QList<MediaItem> &items,
                          const QString &categoryId, const QString &query, const QString &sortKey)
{
    QList<MediaItem> found;
    for (const int row : index.select(items, categoryId, query, sortKey)) {
        found << items.at(row);
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
            movie.name = movies.at(random.bounded(20)).name.toUpper();
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
    void aNewListIsSeen();
    void aChangedListIsSeen();
    void withoutAQueryAnEmptyNameIsLikeAnyOther();
};

void tst_ItemIndex::sameAsFilterAndSort()
{
    const QList<MediaItem> movies = moviesWithTies(4);
    ItemIndex index;
    for (const QString &query :
         {u""_s, u"e"_s, u"news"_s, u"the"_s, u"24"_s, u"ü"_s, u"no such"_s}) {
        for (const QString &category : {u""_s, u"2"_s, u"9"_s}) {
            for (const QString &key : {u"name"_s, u"added"_s, u"rating"_s, u"other"_s}) {
                const QList<MediaItem> expected = filteredAndSorted(movies, category, query, key);
                QCOMPARE(selected(index, movies, category, query, key), expected);
            }
        }
    }
}

void tst_ItemIndex::aNewListIsSeen()
{
    ItemIndex index;
    const QList<MediaItem> first = moviesWithTies(1);
    const QList<MediaItem> second = moviesWithTies(2);
    for (const QList<MediaItem> &movies : {first, second, QList<MediaItem>(), first}) {
        QCOMPARE(selected(index, movies, {}, u"e"_s, u"name"_s),
                 filteredAndSorted(movies, {}, u"e"_s, u"name"_s));
    }
}

void tst_ItemIndex::aChangedListIsSeen()
{
    ItemIndex index;
    QList<MediaItem> movies = moviesWithTies(3);
    index.select(movies, {}, {}, u"rating"_s);
    movies.first().rating = 100.0;
    QCOMPARE(index.select(movies, {}, {}, u"rating"_s).first(), 0);
    movies.removeFirst();
    QCOMPARE(selected(index, movies, {}, {}, u"rating"_s),
             filteredAndSorted(movies, {}, {}, u"rating"_s));
}

void tst_ItemIndex::withoutAQueryAnEmptyNameIsLikeAnyOther()
{
    QList<MediaItem> movies(2);
    movies[0].name = u"News"_s;
    movies[0].rating = 9;
    QCOMPARE(ItemIndex().select(movies, {}, {}, u"rating"_s), QList<int>({0, 1}));
}

VANTIRO_TEST_GUILESS_MAIN(tst_ItemIndex)
#include "tst_ItemIndex.moc"
