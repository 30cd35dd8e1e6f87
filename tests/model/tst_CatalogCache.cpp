#include "model/CatalogCache.h"
#include "support/TestMain.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

// What is saved can be loaded again; tst_CatalogCacheFiles looks at the file itself.

namespace {

constexpr qint64 day = 86400;

MediaItem movie(const QString &id)
{
    MediaItem item;
    item.type = StreamKind::Movie;
    item.id = id;
    item.name = u"Name of "_s + id;
    item.categoryId = u"7"_s;
    item.iconUrl = u"http://host/"_s + id + u".jpg"_s;
    item.containerExtension = u"mkv"_s;
    item.streamUrl = u"http://host/"_s + id + u".mkv"_s;
    item.rating = 7.25;
    item.addedAt = 1'700'000'000;
    return item;
}

Episode episode(const QString &id)
{
    return {id, u"A Show"_s, 2, 11, u"Title of "_s + id, u"mp4"_s};
}

CatalogCache::Section sectionWith(const MediaItem &item)
{
    return {{{u"7"_s, u"Seven"_s}}, {item}};
}

CatalogCache::Section untouched()
{
    return {{{u"before"_s, u"before"_s}}, {movie(u"before"_s)}};
}

/// What the cache loads, or untouched() if it loads nothing.
CatalogCache::Section loaded(const QString &section, const QString &source = u"S"_s)
{
    CatalogCache::Section found = untouched();
    return CatalogCache::load(source, section, found) ? found : untouched();
}

const QList<Episode> untouchedEpisodes{episode(u"before"_s)};

QList<Episode> loadedEpisodes(const QString &show, qint64 maxAge = day)
{
    QList<Episode> found = untouchedEpisodes;
    return CatalogCache::loadEpisodes(u"S"_s, show, maxAge, found) ? found : untouchedEpisodes;
}

} // namespace

Q_DECLARE_METATYPE(CatalogCache::Section)

class tst_CatalogCache : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void neverSaved();
    void roundTrip_data();
    void roundTrip();
    void sectionsAndEpisodesAreIndependent();
    void severalSectionsAtOnce();
    void anySectionName_data();
    void anySectionName();
    void sourcesAreIndependent();
    void numbers_data();
    void numbers();
    void texts_data();
    void texts();
    void loneSurrogatesHarmNothingElse();

    void episodesNeverSaved();
    void episodesRoundTrip_data();
    void episodesRoundTrip();
    void maxAgeOfZeroOrLess();
};

void tst_CatalogCache::init()
{
    PrivateProfile::current().clear();
}

void tst_CatalogCache::neverSaved()
{
    CatalogCache::Section section = untouched();
    QVERIFY(!CatalogCache::load(u"S"_s, u"live"_s, section));
    QCOMPARE(section, untouched());
    CatalogCache::save(u"S"_s, u"movie"_s, {});
    QVERIFY(!CatalogCache::load(u"S"_s, u"live"_s, section));
    QVERIFY(!CatalogCache::load(u"S"_s, u"Movie"_s, section));
    QVERIFY(!CatalogCache::load(u"T"_s, u"movie"_s, section));
    QCOMPARE(section, untouched());
}

void tst_CatalogCache::roundTrip_data()
{
    QTest::addColumn<CatalogCache::Section>("saved");
    using Section = CatalogCache::Section;
    QTest::newRow("empty") << Section();
    QTest::newRow("default values") << Section{{Category()}, {MediaItem()}};
    QTest::newRow("order and duplicates")
        << Section{{{u"2"_s, u"b"_s}, {u"1"_s, u"a"_s}, {u"2"_s, u"b"_s}},
                   {movie(u"z"_s), movie(u"a"_s), movie(u"z"_s), movie(u"10"_s), movie(u"9"_s)}};
    Section many;
    for (int index = 0; index < 20'000; ++index) {
        many.categories.append({QString::number(index), u"Category %1"_s.arg(index)});
        many.items.append(movie(QString::number(index)));
    }
    QTest::newRow("many entries") << many;
}

void tst_CatalogCache::roundTrip()
{
    // Over a section that exists.
    QFETCH(const CatalogCache::Section, saved);
    CatalogCache::save(u"S"_s, u"movie"_s, sectionWith(movie(u"old"_s)));
    CatalogCache::save(u"S"_s, u"movie"_s, saved);
    CatalogCache::save(u"S"_s, u"live"_s, saved);
    QVERIFY(loaded(u"movie"_s) == saved);
    QVERIFY(loaded(u"live"_s) == saved);
}

void tst_CatalogCache::sectionsAndEpisodesAreIndependent()
{
    const QStringList names{u"live"_s, u"movie"_s, u"series"_s, u"channel"_s};
    for (const QString &name : names) {
        CatalogCache::save(u"S"_s, name, sectionWith(movie(name)));
        CatalogCache::saveEpisodes(u"S"_s, name, {episode(name)});
    }
    CatalogCache::save(u"S"_s, u"movie"_s, sectionWith(movie(u"again"_s)));
    CatalogCache::saveEpisodes(u"S"_s, u"movie"_s, {episode(u"again"_s)});
    for (const QString &name : names) {
        const QString id = name == u"movie"_s ? u"again"_s : name;
        QCOMPARE(loaded(name), sectionWith(movie(id)));
        QCOMPARE(loadedEpisodes(name), QList<Episode>{episode(id)});
    }
}

void tst_CatalogCache::severalSectionsAtOnce()
{
    CatalogCache::save(u"S"_s, u"live"_s, sectionWith(movie(u"l"_s)));
    CatalogCache::save(u"S"_s, u"movie"_s, sectionWith(movie(u"m"_s)));
    QList<CatalogCache::Section> loaded{untouched()};
    QVERIFY(!CatalogCache::load(u"S"_s, {u"movie"_s, u"series"_s}, loaded));
    QCOMPARE(loaded, QList<CatalogCache::Section>{untouched()});
    // In the order of the names, and in place of what the list held.
    QVERIFY(CatalogCache::load(u"S"_s, {u"movie"_s, u"live"_s}, loaded));
    QCOMPARE(loaded, (QList<CatalogCache::Section>{sectionWith(movie(u"m"_s)),
                                                   sectionWith(movie(u"l"_s))}));
}

void tst_CatalogCache::anySectionName_data()
{
    QTest::addColumn<QString>("section");
    QTest::newRow("empty") << u""_s;
    QTest::newRow("quote and backslash") << uR"("a\b")"_s;
    QTest::newRow("not ASCII") << u"\u00e9\U0001F600"_s;
    QTest::newRow("like a path") << u"../x/y"_s;
    QTest::newRow("a key of the section itself") << u"items"_s;
    QTest::newRow("control characters") << u"a\n\t\x01"_s;
}

void tst_CatalogCache::anySectionName()
{
    QFETCH(const QString, section);
    CatalogCache::save(u"S"_s, u"live"_s, sectionWith(movie(u"live"_s)));
    CatalogCache::save(u"S"_s, section, sectionWith(movie(u"other"_s)));
    QCOMPARE(loaded(section), sectionWith(movie(u"other"_s)));
    QCOMPARE(loaded(u"live"_s), sectionWith(movie(u"live"_s)));
}

void tst_CatalogCache::sourcesAreIndependent()
{
    QStringList sources{u"A"_s, u"B"_s, u"AA"_s, u""_s, u"A-"_s};
#ifndef Q_OS_WIN // where file names ignore case
    sources.append(u"a"_s);
#endif
    for (const QString &source : std::as_const(sources)) {
        CatalogCache::save(source, u"live"_s, sectionWith(movie(source)));
    }
    for (const QString &source : std::as_const(sources)) {
        QCOMPARE(loaded(u"live"_s, source), sectionWith(movie(source)));
    }
}

void tst_CatalogCache::numbers_data()
{
    QTest::addColumn<qint32>("type");
    QTest::addColumn<double>("rating");
    QTest::addColumn<qint64>("addedAt");
    QTest::newRow("zero") << 0 << 0.0 << qint64(0);
    QTest::newRow("fraction") << 1 << 7.3 << qint64(1);
    QTest::newRow("many digits") << 2 << 0.1 + 0.2 << qint64(1'700'000'001);
    QTest::newRow("negative") << -1 << -8.5 << qint64(-1);
    QTest::newRow("whole rating") << 1 << 10.0 << qint64(86400);
    QTest::newRow("tiny rating") << 1 << 5e-324 << qint64(2);
    QTest::newRow("huge rating") << 1 << 1.7976931348623157e308 << qint64(3);
    QTest::newRow("2^53") << 1 << 1.0 << (qint64(1) << 53);
    QTest::newRow("2^53 + 1") << 1 << 1.0 << (qint64(1) << 53) + 1;
    QTest::newRow("largest") << std::numeric_limits<qint32>::max() << 9.0
                             << std::numeric_limits<qint64>::max();
    QTest::newRow("smallest") << std::numeric_limits<qint32>::min() << 9.0
                              << std::numeric_limits<qint64>::min();
    using Limits = std::numeric_limits<double>;
    for (const double rating : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity()}) {
        QTest::addRow("rating %f", rating) << 1 << rating << qint64(1);
    }
}

void tst_CatalogCache::numbers()
{
    QFETCH(const qint32, type);
    QFETCH(const double, rating);
    QFETCH(const qint64, addedAt);
    MediaItem item = movie(u"n"_s);
    item.type = type;
    item.rating = rating;
    item.addedAt = addedAt;
    CatalogCache::save(u"S"_s, u"movie"_s, sectionWith(item));
    CatalogCache::save(u"S"_s, u"live"_s, {}); // keeps the section
    const QList<MediaItem> items = loaded(u"movie"_s).items;
    QCOMPARE(items.size(), 1);
    QCOMPARE(items.first().type, type);
    QVERIFY(items.first().rating == (std::isfinite(rating) ? rating : 0)); // QCOMPARE is fuzzy
    QCOMPARE(items.first().addedAt, addedAt);
}

void tst_CatalogCache::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("quotes and backslashes") << uR"("a\b" \" \\ \u0041 /)"_s;
    QTest::newRow("JSON") << uR"({"items":[],"live":{}},)"_s;
    QTest::newRow("control characters")
        << u"\x01\x02\x03\x04\x05\x06\x07\b\t\n\v\f\r\x0e\x1f\x7f\u0080\u009f"_s;
    QTest::newRow("NUL") << QString(QChar(0)) + u"a"_s + QChar(0) + u"b"_s + QChar(0);
    QTest::newRow("not ASCII") << u"\u00e9\u00df\u4e2d\u0627\u05d0"_s;
    QTest::newRow("outside the basic plane") << u"\U0001F600\U0010FFFF\U00010000"_s;
    QTest::newRow("byte-order mark at the start") << u"\ufeffabc"_s;
    QTest::newRow("specials") << u"a\ufeff\u2028\u2029\u200b\ufffd\ufffe\uffff"_s;
    QTest::newRow("combining") << u"e\u0301 \u00e9"_s;
    QTest::newRow("blanks") << u"  \t "_s;
    QTest::newRow("empty") << u""_s;
    QTest::newRow("long") << QString(100'000, u'\u00e9');
}

void tst_CatalogCache::texts()
{
    QFETCH(const QString, text);
    const CatalogCache::Section saved{{{text, text}},
                                      {{0, text, text, text, text, text, text, 1.5, 1}}};
    const QList<Episode> episodes{{text, text, 1, 2, text, text}};
    CatalogCache::save(u"S"_s, u"live"_s, saved);
    CatalogCache::saveEpisodes(u"S"_s, text, episodes);
    CatalogCache::save(u"S"_s, u"movie"_s, {}); // keeps the rest
    QCOMPARE(loaded(u"live"_s), saved);
    QCOMPARE(loadedEpisodes(text), episodes);
}

void tst_CatalogCache::loneSurrogatesHarmNothingElse()
{
    // UTF-8 cannot represent them; whatever they become, the file must stay readable.
    MediaItem item = movie(u"a"_s);
    item.name = u"x"_s + QChar(0xd83d) + u"y"_s + QChar(0xde00);
    CatalogCache::save(u"S"_s, u"movie"_s, {{}, {item, movie(u"b"_s)}});
    CatalogCache::save(u"S"_s, u"live"_s, {});
    const QList<MediaItem> items = loaded(u"movie"_s).items;
    QCOMPARE(items.size(), 2);
    QVERIFY(items[0].name.startsWith(u'x') && items[0].name.contains(u'y'));
    item.name = items[0].name;
    QCOMPARE(items, (QList<MediaItem>{item, movie(u"b"_s)}));
}

void tst_CatalogCache::episodesNeverSaved()
{
    QList<Episode> episodes{episode(u"before"_s)};
    QVERIFY(!CatalogCache::loadEpisodes(u"S"_s, u"9"_s, day, episodes));
    CatalogCache::save(u"S"_s, u"series"_s, {});
    QVERIFY(!CatalogCache::loadEpisodes(u"S"_s, u"9"_s, day, episodes));
    CatalogCache::saveEpisodes(u"S"_s, u"8"_s, {});
    QVERIFY(!CatalogCache::loadEpisodes(u"S"_s, u"9"_s, day, episodes));
    QVERIFY(!CatalogCache::loadEpisodes(u"S"_s, u""_s, day, episodes));
    constexpr qint64 anyAge = std::numeric_limits<qint64>::max();
    QVERIFY(!CatalogCache::loadEpisodes(u"S"_s, u"9"_s, anyAge, episodes));
    QCOMPARE(episodes, QList<Episode>{episode(u"before"_s)});
}

void tst_CatalogCache::episodesRoundTrip_data()
{
    QTest::addColumn<QList<Episode>>("saved");
    QTest::newRow("empty") << QList<Episode>();
    QTest::newRow("order, duplicates, numbers")
        << QList<Episode>{episode(u"2"_s),
                          episode(u"1"_s),
                          episode(u"2"_s),
                          Episode(),
                          {u"x"_s, {}, std::numeric_limits<qint32>::max(), -5, {}, {}}};
}

void tst_CatalogCache::episodesRoundTrip()
{
    QFETCH(const QList<Episode>, saved);
    CatalogCache::saveEpisodes(u"S"_s, u"9"_s, {episode(u"old"_s)});
    CatalogCache::saveEpisodes(u"S"_s, u"9"_s, saved);
    QCOMPARE(loadedEpisodes(u"9"_s), saved);
}

void tst_CatalogCache::maxAgeOfZeroOrLess()
{
    CatalogCache::saveEpisodes(u"S"_s, u"9"_s, {episode(u"a"_s)});
    for (const qint64 maxAge : {qint64(0), qint64(-1), std::numeric_limits<qint64>::min()}) {
        QCOMPARE(loadedEpisodes(u"9"_s, maxAge), untouchedEpisodes);
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_CatalogCache)
#include "tst_CatalogCache.moc"
