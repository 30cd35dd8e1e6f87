#include "ReferenceItemFilter.h"
#include "model/ItemFilter.h"
#include "support/TestMain.h"

#include <QRandomGenerator>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

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

    QString categoryId() { return pick(QStringList{{}, u"0"_s, u"1"_s, u"9"_s}); }

    QString sortKey()
    {
        return pick(
            QStringList{u"name"_s, u"added"_s, u"rating"_s, u"Added"_s, u"RATING"_s, QString()});
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

    template <typename T>
    T pick(const QList<T> &list)
    {
        return list.at(random.bounded(static_cast<int>(list.size())));
    }

    QRandomGenerator random;
    const QStringList allPieces{
        // Plain letters, often: so that names repeat and share pieces.
        u"a"_s, u"B"_s, u"a"_s, u"b"_s, u"news"_s, u"NEWS"_s, u"News"_s, u"s"_s, u"k"_s, u"1"_s,
        u" "_s, u" "_s, u"-"_s, u"_"_s, u"  "_s, u"\t"_s, u"\u00a0"_s,
        // Letters whose other case is long, elsewhere or none.
        u"ß"_s, u"ẞ"_s, u"ss"_s, u"SS"_s, u"i"_s, u"I"_s, u"İ"_s, u"ı"_s, u"ſ"_s, u"\u212a"_s,
        u"Σ"_s, u"σ"_s, u"ς"_s, u"ǅ"_s, u"ﬁ"_s, u"é"_s, u"É"_s, u"e\u0301"_s, u"\u0301"_s, u"µ"_s,
        u"Я"_s, u"я"_s, u"ö"_s, u"Ö"_s, u"日"_s, u"本"_s, u"\u0130\u0307"_s, u"Å"_s, u"\u212b"_s,
        // Outside the first plane: with and without a case.
        u"😀"_s, u"𐐀"_s, u"𐐨"_s, u"𝐀"_s,
        // The syntax of regular expressions.
        u"+"_s, u"("_s, u")"_s, u"["_s, u"]"_s, u"{"_s, u"}"_s, u"."_s, u"*"_s, u"?"_s, u"\\"_s,
        u"|"_s, u"^"_s, u"$"_s, u"\\E"_s, u"\\b"_s, u"#"_s, u"/"_s, u"\n"_s, u"\r"_s,
        QString(QChar(0))};
    QStringList pieces;
    const QList<double> ratings{0,  0,      5,        7.5,       7.5,       9.9,
                                -1, 1e-300, infinity, -infinity, notANumber};
    const QList<qint64> dates{0,
                              0,
                              1,
                              1700000000,
                              1700000000,
                              -5,
                              4294967296,
                              std::numeric_limits<qint64>::max(),
                              std::numeric_limits<qint64>::min()};
};

} // namespace

/// Searching and sorting random catalogs gives what the reference implementation gives.
class tst_ItemFilterRandom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameAsTheReference_data();
    void sameAsTheReference();
    void resultIsAStableReorderingOfTheMatches_data();
    void resultIsAStableReorderingOfTheMatches();
};

void tst_ItemFilterRandom::sameAsTheReference_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 40; ++seed) {
        QTest::addRow("seed %u", seed) << seed;
    }
}

void tst_ItemFilterRandom::sameAsTheReference()
{
    QFETCH(quint32, seed);
    RandomCatalog catalog(seed);
    const QList<MediaItem> items = catalog.items(120);
    qsizetype matches = 0;
    for (int round = 0; round < 25; ++round) {
        const QString query = round % 5 == 0 ? QString() : catalog.query(items);
        const QString categoryId = catalog.categoryId();
        const QString key = catalog.sortKey();

        QList<MediaItem> expected = ReferenceItemFilter::applyFilter(items, categoryId, query);
        QList<MediaItem> actual = applyFilter(items, categoryId, query);
        QVERIFY2(ids(actual) == ids(expected), qUtf8Printable(u"query "_s + query));
        ReferenceItemFilter::sortItems(expected, query, key);
        sortItems(actual, query, key);
        QVERIFY2(ids(actual) == ids(expected),
                 qUtf8Printable(u"query "_s + query + u" by "_s + key));
        matches += query.isEmpty() ? 0 : actual.size();
    }
    // Queries without a match would prove nothing.
    QVERIFY(matches > 40);
}

void tst_ItemFilterRandom::resultIsAStableReorderingOfTheMatches_data()
{
    sameAsTheReference_data();
}

void tst_ItemFilterRandom::resultIsAStableReorderingOfTheMatches()
{
    QFETCH(quint32, seed);
    RandomCatalog catalog(seed + 1000);
    const QList<MediaItem> items = catalog.items(120);
    for (int round = 0; round < 25; ++round) {
        const QString query = catalog.query(items);
        const QString categoryId = catalog.categoryId();
        const QList<MediaItem> result = applyFilter(items, categoryId, query);

        QList<int> positions;
        for (const MediaItem &item : result) {
            positions << item.id.toInt();
            QCOMPARE(item.name, items.at(positions.last()).name);
        }
        for (qsizetype at = 1; at < result.size(); ++at) {
            const int before = ReferenceItemFilter::score(result.at(at - 1).name, query);
            const int after = ReferenceItemFilter::score(result.at(at).name, query);
            QVERIFY(before < after || (before == after && positions.at(at - 1) < positions.at(at)));
        }
        std::sort(positions.begin(), positions.end());
        QList<int> matching;
        for (int index = 0; index < items.size(); ++index) {
            const MediaItem &item = items.at(index);
            if ((categoryId.isEmpty() || item.categoryId == categoryId) &&
                item.name.contains(query, Qt::CaseInsensitive)) {
                matching << index;
            }
        }
        QCOMPARE(positions, matching);
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_ItemFilterRandom)
#include "tst_ItemFilterRandom.moc"
