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
        if (inCategory && item.name.contains(query, Qt::CaseInsensitive)) {
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

/// Creates names with many characters that are special for case, words and patterns.
class RandomCatalog
{
public:
    explicit RandomCatalog(quint32 seed)
        : random(seed)
    {
        // Few pieces in a catalog, so that its names share many.
        for (int count = 0; count < 12; ++count) {
            pieces << pick(allPieces);
        }
    }

    QList<MediaItem> items(int count)
    {
        QList<MediaItem> result;
        for (int index = 0; index < count; ++index) {
            MediaItem item;
            item.name = name();
            item.categoryId = QString::number(random.bounded(3));
            item.id = QString::number(index);
            item.rating = pick(ratings);
            item.addedAt = pick(dates);
            result.append(item);
        }
        return result;
    }

    /// A piece of one of the names, mostly in another case, or a text that is in none.
    QString query(const QList<MediaItem> &items)
    {
        const QString from = pick(items).name;
        if (from.isEmpty() || random.bounded(10) == 0) {
            return name();
        }
        const auto start = random.bounded(static_cast<int>(from.size()));
        QString piece = from.mid(start, 1 + random.bounded(4));
        // Half a surrogate pair is no pattern, and no one can type it.
        if (piece.front().isLowSurrogate() || piece.back().isHighSurrogate()) {
            piece = from;
        }
        const int change = random.bounded(3);
        return change == 0 ? piece : change == 1 ? piece.toUpper() : piece.toLower();
    }

    template <typename T>
    T pick(const QList<T> &list)
    {
        return list.at(random.bounded(static_cast<int>(list.size())));
    }

private:
    QString name()
    {
        QString text;
        const int length = random.bounded(1, 9);
        for (int index = 0; index < length; ++index) {
            text += pick(pieces);
        }
        return text;
    }

    QRandomGenerator random;
    const QStringList allPieces =
        // Plain letters, often: so that names repeat and share pieces.
        u"a B a b news NEWS News s k 1 - _ "
        // Letters whose other case is long, elsewhere or none.
        "ß ẞ ss SS i I İ ı ſ \u212a Σ σ ς ǅ ﬁ é É e\u0301 \u0301 µ Я я ö Ö 日 本 \u0130\u0307 Å "
        "\u212b "
        // Outside the first plane: with and without a case.
        "😀 𐐀 𐐨 𝐀 "
        // The syntax of regular expressions.
        "+ ( ) [ ] { } . * ? \\ | ^ $ \\E \\b # /"_s.split(u' ')
        << u" "_s << u" "_s << u"  "_s << u"\t"_s << u"\u00a0"_s << u"\n"_s << u"\r"_s << QChar(0);
    QStringList pieces;
    using Reals = std::numeric_limits<double>;
    using Times = std::numeric_limits<qint64>;
    const QList<double> ratings{
        0, 0, 5, 7.5, 7.5, 9.9, -1, Reals::infinity(), -Reals::infinity(), Reals::quiet_NaN()};
    const QList<qint64> dates{0,           0, 1, 1'700'000'000, -5, 4'294'967'296, Times::max(),
                              Times::min()};
};

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
    RandomCatalog catalog(seed);
    const QList<MediaItem> items = catalog.items(120);
    qsizetype matches = 0;
    for (int round = 0; round < 25; ++round) {
        const QString query = round % 5 == 0 ? QString() : catalog.query(items);
        const QString categoryId = catalog.pick(QStringList{{}, u"0"_s, u"1"_s, u"9"_s});
        const QString key = catalog.pick(
            QStringList{u"name"_s, u"added"_s, u"rating"_s, u"Added"_s, u"RATING"_s, {}});

        const QList<MediaItem> expected = filtered(items, categoryId, query);
        QList<MediaItem> actual = applyFilter(items, categoryId, query);
        QVERIFY2(idsOf(actual) == sortedIds(expected, query, u"none"_s), qUtf8Printable(query));
        const QStringList order = sortedIds(actual, query, key);
        sortItems(actual, query, key);
        const QString what = u"query "_s + query + u" by "_s + key;
        QVERIFY2(idsOf(actual) == order, qUtf8Printable(what));
        matches += query.isEmpty() ? 0 : actual.size();
    }
    // Queries without a match would prove nothing.
    QVERIFY(matches > 40);
}

VANTIRO_TEST_GUILESS_MAIN(tst_ItemFilterRandom)
#include "tst_ItemFilterRandom.moc"
