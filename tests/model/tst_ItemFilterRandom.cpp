// Searching and sorting random catalogs gives what the definition below gives, regardless of speed.

#include "model/ItemFilter.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// 0 equal, 1 at the start, 2 at the start of a word, 3 anything else; 0 for an empty query.
int scoreOf(const QString &name, const QString &query)
{
    if (query.isEmpty() || QString::compare(name, query, Qt::CaseInsensitive) == 0) {
        return 0;
    }
    if (name.startsWith(query, Qt::CaseInsensitive)) {
        return 1;
    }
    const QRegularExpression wordStart(u"\\b"_s + QRegularExpression::escape(query),
                                       QRegularExpression::CaseInsensitiveOption);
    return wordStart.match(name).hasMatch() ? 2 : 3;
}

QList<MediaItem> filtered(const QList<MediaItem> &items, const QString &categoryId,
                          const QString &query)
{
    QList<MediaItem> result;
    for (const MediaItem &item : items) {
        const bool inCategory = categoryId.isEmpty() || item.categoryId == categoryId;
        if (inCategory && item.name.toString().contains(query, Qt::CaseInsensitive)) {
            result.append(item);
        }
    }
    return result;
}

double orderedRating(const MediaItem &item)
{
    return std::isfinite(item.rating) ? item.rating : 0.0;
}

bool keyComesBefore(const MediaItem &a, const MediaItem &b, const QString &sortKey)
{
    if (sortKey == "added"_L1) {
        return a.addedAt > b.addedAt;
    }
    if (sortKey == "rating"_L1) {
        return orderedRating(a) > orderedRating(b);
    }
    return sortKey != "none"_L1 && QString::compare(a.name, b.name, Qt::CaseInsensitive) < 0;
}

/// The ids in their order by relevance and then by the key; "none" keeps the order.
QStringList sortedIds(const QList<MediaItem> &items, const QString &query, const QString &sortKey)
{
    std::vector<std::pair<int, MediaItem>> scored;
    for (const MediaItem &item : items) {
        scored.emplace_back(scoreOf(item.name, query), item);
    }
    std::stable_sort(scored.begin(), scored.end(), [&sortKey](const auto &a, const auto &b) {
        return a.first != b.first ? a.first < b.first : keyComesBefore(a.second, b.second, sortKey);
    });
    QStringList ids;
    for (const auto &[score, item] : scored) {
        ids << item.id;
    }
    return ids;
}

QStringList idsOf(const QList<MediaItem> &items)
{
    QStringList ids;
    for (const MediaItem &item : items) {
        ids << item.id;
    }
    return ids;
}

template <typename T>
T pick(QRandomGenerator &random, const QList<T> &list)
{
    return list.at(random.bounded(static_cast<int>(list.size())));
}

const QStringList pieces =
    // Plain letters and signs of words.
    u"a B news NEWS k 1 - _ "
    // Letters whose other case is long, elsewhere or none.
    "ß ẞ ss SS i I İ ı ſ \u212a Σ σ ς ǅ ﬁ é É e\u0301 \u0301 µ Я я 日 \u0130\u0307 Å \u212b "
    // Outside the first plane: with and without a case.
    "😀 𐐀 𐐨 𝐀 "
    // The syntax of regular expressions.
    "+ ( ] { . * ? \\ | ^ $ \\E \\b #"_s.split(u' ')
    << u" "_s << u"  "_s << u"\t"_s << u"\u00a0"_s << u"\n"_s << QChar(0);

/// Names of few pieces each, in any order, so that they share many.
QList<MediaItem> randomItems(QRandomGenerator &random, const QStringList &ownPieces)
{
    using Reals = std::numeric_limits<double>;
    using Times = std::numeric_limits<qint64>;
    const QList<double> ratings{
        0, 7.5, 9.9, -1, Reals::infinity(), -Reals::infinity(), Reals::quiet_NaN()};
    const QList<qint64> dates{0, 1'700'000'000, -5, 4'294'967'296, Times::max(), Times::min()};
    QList<MediaItem> items(120);
    for (MediaItem &item : items) {
        QString name;
        for (int count = random.bounded(1, 9); count > 0; --count) {
            name += pick(random, ownPieces);
        }
        item.name = name;
        item.id = QString::number(&item - items.constData());
        item.categoryId = QString::number(random.bounded(3));
        item.rating = pick(random, ratings);
        item.addedAt = pick(random, dates);
    }
    return items;
}

} // namespace

class tst_ItemFilterRandom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameAsTheDefinition_data();
    void sameAsTheDefinition();
};

void tst_ItemFilterRandom::sameAsTheDefinition_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 60; ++seed) {
        QTest::addRow("seed %u", seed) << seed;
    }
}

void tst_ItemFilterRandom::sameAsTheDefinition()
{
    QFETCH(const quint32, seed);
    QRandomGenerator random(seed);
    QStringList ownPieces;
    for (int count = 0; count < 12; ++count) {
        ownPieces << pick(random, pieces);
    }
    const QList<MediaItem> items = randomItems(random, ownPieces);
    qsizetype matches = 0;
    for (int round = 0; round < 25; ++round) {
        QString query = pick(random, ownPieces) + pick(random, ownPieces + QStringList(12, {}));
        if (round % 5 == 0) {
            query.clear();
        } else if (round % 3 != 0) { // a third as it stands in the names
            query = round % 2 == 0 ? query.toUpper() : query.toLower();
        }
        const QString categoryId = pick(random, QStringList{{}, u"0"_s, u"1"_s, u"9"_s});
        const QString key =
            pick(random, QStringList{u"name"_s, u"added"_s, u"rating"_s, u"Added"_s});

        QList<MediaItem> actual = applyFilter(items, categoryId, query);
        QVERIFY2(idsOf(actual) == sortedIds(filtered(items, categoryId, query), query, u"none"_s),
                 qUtf8Printable(query));
        const QStringList order = sortedIds(actual, query, key);
        sortItems(actual, query, key);
        QVERIFY2(idsOf(actual) == order, qUtf8Printable(u"query "_s + query + u" by "_s + key));
        matches += query.isEmpty() ? 0 : actual.size();
    }
    // Queries without a match would prove nothing.
    QVERIFY(matches > 40);
}

VANTIRO_TEST_GUILESS_MAIN(tst_ItemFilterRandom)
#include "tst_ItemFilterRandom.moc"
