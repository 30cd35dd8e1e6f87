#include "model/ItemFilter.h"
#include "support/TestMain.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace {

MediaItem named(const QString &name, const QString &categoryId = {})
{
    MediaItem item;
    item.name = name;
    item.categoryId = categoryId;
    return item;
}

QList<MediaItem> namedAll(const QStringList &names)
{
    QList<MediaItem> items;
    for (const QString &name : names) {
        items.append(named(name));
    }
    return items;
}

QStringList names(const QList<MediaItem> &items)
{
    QStringList result;
    for (const MediaItem &item : items) {
        result << item.name;
    }
    return result;
}

QStringList ids(const QList<MediaItem> &items)
{
    QStringList result;
    for (const MediaItem &item : items) {
        result << item.id;
    }
    return result;
}

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

class tst_ItemFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void matches_data();
    void matches();
    void category();
    void relevanceOrder_data();
    void relevanceOrder();
    void sorted();
    void tieBreakDecidesAmongEqualScores();
    void namesWithoutTheQueryAreSortedLikeThoseAroundIt();
};

void tst_ItemFilter::matches_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("query");
    QTest::addColumn<bool>("expected");

    const auto row = [](const char *title, const QString &name, const QString &query, bool found) {
        QTest::newRow(title) << name << query << found;
    };
    row("an empty query matches", u"News"_s, {}, true);
    row("a query does not match an empty name", {}, u"n"_s, false);
    row("the first and the last letter, whatever the case", u"Azaz"_s, u"ZA"_s, true);
    row("not when longer than the name", u"New"_s, u"News"_s, false);
    row("not trimmed in front", u"News"_s, u" News"_s, false);
    row("two words as typed", u"Sky News HD"_s, u"sky news"_s, true);
    row("a plus sign is itself", u"Canal+ Sport"_s, u"canal+"_s, true);
    row("a plus sign is no repetition", u"Canall"_s, u"canal+"_s, false);
    row("beyond ASCII, whatever the case", u"Über Österreich"_s, u"ÖSTER"_s, true);
    row("an accent is part of its letter", u"Café"_s, u"cafe"_s, false);
    row("sharp s is not two letters", u"Straße"_s, u"strasse"_s, false);
    row("beside half of a surrogate pair", QChar(0xd83d) + u"News"_s, u"news"_s, true);
    row("beyond the first plane, whatever the case", u"𐐀"_s, u"𐐨"_s, true);
}

void tst_ItemFilter::matches()
{
    QFETCH(QString, name);
    QFETCH(QString, query);
    QFETCH(bool, expected);

    const QList<MediaItem> result = applyFilter({named(name)}, {}, query);
    QCOMPARE(result.size(), expected ? 1 : 0);
}

void tst_ItemFilter::category()
{
    const QList<MediaItem> items{named(u"One"_s, u"a"_s), named(u"Two"_s, u"A"_s),
                                 named(u"Three"_s, u"a"_s), named(u"Four"_s)};
    const auto found = [&items](const QString &categoryId, const QString &query) {
        return names(applyFilter(items, categoryId, query)).join(u' ');
    };
    QCOMPARE(found({}, {}), u"One Two Three Four"_s);
    QCOMPARE(found(u"a"_s, {}), u"One Three"_s);
    QCOMPARE(found(u"aa"_s, {}), QString());
    QCOMPARE(found(u"a"_s, u"t"_s), u"Three"_s);
    QCOMPARE(found({}, u"t"_s), u"Two Three"_s);
}

void tst_ItemFilter::relevanceOrder_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<QStringList>("expected");

    const auto row = [](const char *title, const QString &query, const QStringList &items,
                        const QStringList &expected) {
        QTest::newRow(title) << query << items << expected;
    };
    row("equal, then at the start, then at a word, in their earlier order", u"news"_s,
        {u"Sky News"_s, u"News 24"_s, u"Breaking-news"_s, u"News"_s, u"Newsroom Live"_s},
        {u"News"_s, u"News 24"_s, u"Newsroom Live"_s, u"Sky News"_s, u"Breaking-news"_s});
    row("inside a word comes last", u"ews"_s, {u"News"_s, u"Sky Ews"_s, u"Ewsome"_s, u"EWS"_s},
        {u"EWS"_s, u"Ewsome"_s, u"Sky Ews"_s, u"News"_s});
    row("a digit and an underscore are inside a word", u"tv"_s,
        {u"1tv"_s, u"my_tv"_s, u"my tv"_s, u"my.tv"_s},
        {u"my tv"_s, u"my.tv"_s, u"1tv"_s, u"my_tv"_s});
    row("pattern characters are themselves at a word", u"a+ (b"_s,
        {u"xa+ (b)"_s, u"x a+ (b)"_s, u"A+ (B"_s}, {u"A+ (B"_s, u"x a+ (b)"_s, u"xa+ (b)"_s});
    row("a query that begins with a sign has no word start after a space", u"+1"_s,
        {u"TV +1"_s, u"TV+1"_s, u"+1 TV"_s}, {u"+1 TV"_s, u"TV+1"_s, u"TV +1"_s});
    row("a letter beyond ASCII is no word character", u"bc"_s, {u"abc"_s, u"ébc"_s},
        {u"ébc"_s, u"abc"_s});
    row("without a query the order stays", {}, {u"b"_s, u"a"_s, u"C"_s}, {u"b"_s, u"a"_s, u"C"_s});
}

void tst_ItemFilter::relevanceOrder()
{
    QFETCH(QString, query);
    QFETCH(QStringList, items);
    QFETCH(QStringList, expected);
    QCOMPARE(names(applyFilter(namedAll(items), {}, query)), expected);
}

void tst_ItemFilter::sorted()
{
    const auto item = [](int id, const QString &name, qint64 added, double rating) {
        MediaItem result = named(name);
        result.id = QString::number(id);
        result.addedAt = added;
        result.rating = rating;
        return result;
    };
    const QList<MediaItem> items{
        item(0, u"Film"_s, 5, infinity),       item(1, u"my film"_s, 0, notANumber),
        item(2, u"the film"_s, 4294967296, 0), item(3, u"FILM"_s, 0, 8.5),
        item(4, u"a film"_s, 6, -infinity),    item(5, u"xfilm"_s, 5, 8.4)};
    const auto sortedIds = [&items](const QString &query, const QString &key) {
        QList<MediaItem> sorted = items;
        sortItems(sorted, query, key);
        return ids(sorted).join(QString());
    };
    QCOMPARE(sortedIds({}, u"name"_s), u"403125"_s);
    QCOMPARE(sortedIds({}, u"ADDED"_s), u"403125"_s); // an unknown key
    QCOMPARE(sortedIds({}, u"added"_s), u"240513"_s);
    // No rating, an infinite one and what is not a number count as 0.
    QCOMPARE(sortedIds({}, u"rating"_s), u"350124"_s);
    QCOMPARE(sortedIds(u"film"_s, u"added"_s), u"032415"_s);
}

void tst_ItemFilter::tieBreakDecidesAmongEqualScores()
{
    QList<MediaItem> items =
        namedAll({u"x news"_s, u"News"_s, u"Newsroom"_s, u"xnews"_s, u"a news"_s, u"NEWS"_s});
    QList<int> seen;
    sortByRelevance(items, u"news"_s, [&seen](int a, int b, const QList<int> &scores) {
        seen = scores;
        // The later of two equals first: only right with indices into the old list.
        return scores.at(a) == scores.at(b) && a > b;
    });
    QCOMPARE(seen, (QList<int>{2, 0, 1, 3, 2, 0}));
    QCOMPARE(names(items), (QStringList{u"NEWS"_s, u"News"_s, u"Newsroom"_s, u"a news"_s,
                                        u"x news"_s, u"xnews"_s}));
    sortByRelevance(items, {}, [](int a, int b, const QList<int> &scores) {
        return scores.at(a) == 0 && scores.at(b) == 0 && a > b;
    });
    QCOMPARE(items.first().name, u"xnews"_s);
}

void tst_ItemFilter::namesWithoutTheQueryAreSortedLikeThoseAroundIt()
{
    // Both are "anything else": their names decide.
    QList<MediaItem> items = namedAll({u"xnews"_s, u"film"_s, u"anews"_s});
    sortItems(items, u"news"_s, u"name"_s);
    QCOMPARE(names(items), (QStringList{u"anews"_s, u"film"_s, u"xnews"_s}));
}

VANTIRO_TEST_GUILESS_MAIN(tst_ItemFilter)
#include "tst_ItemFilter.moc"
