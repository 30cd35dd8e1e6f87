#include "model/CatalogCache.h"
#include "support/TestMain.h"

#include <QDateTime>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

// What goes into the cache comes out of it again; the file itself is tst_CatalogCacheFiles'.

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

} // namespace

class tst_CatalogCache : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void neverSaved();
    void roundTrip();
    void roundTripOfDefaults();
    void orderAndDuplicatesAreKept();
    void emptySection();
    void loadingReplacesTheLists();
    void savingReplacesTheSection();
    void sectionsAreIndependent();
    void severalSectionsAtOnce();
    void anySectionName_data();
    void anySectionName();
    void sourcesAreIndependent();
    void numbers_data();
    void numbers();
    void ratingThatIsNoNumber_data();
    void ratingThatIsNoNumber();
    void texts_data();
    void texts();
    void loneSurrogatesHarmNothingElse();
    void manyEntries();

    void episodesNeverSaved();
    void episodesRoundTrip();
    void episodesOfSeveralShows();
    void savingEpisodesReplacesTheShow();
    void emptyEpisodeList();
    void episodesAreSavedNow();
    void maxAgeOfZeroOrLess_data();
    void maxAgeOfZeroOrLess();
    void sectionsAndEpisodesShareAFile();
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

void tst_CatalogCache::roundTrip()
{
    const CatalogCache::Section saved{{{u"1"_s, u"One"_s}, {u"2"_s, u"Two"_s}},
                                      {movie(u"a"_s), movie(u"b"_s)}};
    CatalogCache::save(u"S"_s, u"movie"_s, saved);
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(u"S"_s, u"movie"_s, loaded));
    QCOMPARE(loaded, saved);
}

void tst_CatalogCache::roundTripOfDefaults()
{
    CatalogCache::save(u"S"_s, u"live"_s, {{Category()}, {MediaItem()}});
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(u"S"_s, u"live"_s, loaded));
    QCOMPARE(loaded.categories, QList<Category>{Category()});
    QCOMPARE(loaded.items, QList<MediaItem>{MediaItem()});
    QCOMPARE(loaded.items.first().rating, 0.0);
    QCOMPARE(loaded.items.first().addedAt, 0);
}

void tst_CatalogCache::orderAndDuplicatesAreKept()
{
    const CatalogCache::Section saved{
        {{u"2"_s, u"b"_s}, {u"1"_s, u"a"_s}, {u"2"_s, u"b"_s}},
        {movie(u"z"_s), movie(u"a"_s), movie(u"z"_s), movie(u"10"_s), movie(u"9"_s)}};
    CatalogCache::save(u"S"_s, u"movie"_s, saved);
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(u"S"_s, u"movie"_s, loaded));
    QCOMPARE(loaded, saved);
}

void tst_CatalogCache::emptySection()
{
    CatalogCache::save(u"S"_s, u"live"_s, {});
    CatalogCache::Section loaded = untouched();
    QVERIFY(CatalogCache::load(u"S"_s, u"live"_s, loaded));
    QVERIFY(loaded.categories.isEmpty());
    QVERIFY(loaded.items.isEmpty());
}

void tst_CatalogCache::loadingReplacesTheLists()
{
    CatalogCache::save(u"S"_s, u"live"_s, sectionWith(movie(u"new"_s)));
    CatalogCache::Section loaded = untouched();
    QVERIFY(CatalogCache::load(u"S"_s, u"live"_s, loaded));
    QCOMPARE(loaded, sectionWith(movie(u"new"_s)));
}

void tst_CatalogCache::savingReplacesTheSection()
{
    CatalogCache::save(u"S"_s, u"live"_s, {{{u"1"_s, u"One"_s}}, {movie(u"a"_s), movie(u"b"_s)}});
    CatalogCache::save(u"S"_s, u"live"_s, sectionWith(movie(u"c"_s)));
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(u"S"_s, u"live"_s, loaded));
    QCOMPARE(loaded, sectionWith(movie(u"c"_s)));
}

void tst_CatalogCache::sectionsAreIndependent()
{
    const QStringList sections{u"live"_s, u"movie"_s, u"series"_s, u"channel"_s};
    for (const QString &section : sections) {
        CatalogCache::save(u"S"_s, section, sectionWith(movie(section)));
    }
    CatalogCache::save(u"S"_s, u"movie"_s, sectionWith(movie(u"again"_s)));
    for (const QString &section : sections) {
        CatalogCache::Section loaded;
        QVERIFY(CatalogCache::load(u"S"_s, section, loaded));
        QCOMPARE(loaded, sectionWith(movie(section == u"movie"_s ? u"again"_s : section)));
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
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(u"S"_s, section, loaded));
    QCOMPARE(loaded, sectionWith(movie(u"other"_s)));
    QVERIFY(CatalogCache::load(u"S"_s, u"live"_s, loaded));
    QCOMPARE(loaded, sectionWith(movie(u"live"_s)));
}

void tst_CatalogCache::sourcesAreIndependent()
{
    QStringList sources{u"A"_s, u"B"_s, u"AA"_s, u""_s, u"A-"_s};
#ifndef Q_OS_WIN // whose file names do not tell the case
    sources.append(u"a"_s);
#endif
    for (const QString &source : std::as_const(sources)) {
        CatalogCache::save(source, u"live"_s, sectionWith(movie(source)));
    }
    for (const QString &source : std::as_const(sources)) {
        CatalogCache::Section loaded;
        QVERIFY(CatalogCache::load(source, u"live"_s, loaded));
        QCOMPARE(loaded, sectionWith(movie(source)));
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
    CatalogCache::save(u"S"_s, u"live"_s, {}); // carries the section over
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(u"S"_s, u"movie"_s, loaded));
    QCOMPARE(loaded.items.size(), 1);
    QCOMPARE(loaded.items.first().type, type);
    QVERIFY(loaded.items.first().rating == rating); // exactly, QCOMPARE is fuzzy
    QCOMPARE(loaded.items.first().addedAt, addedAt);
}

void tst_CatalogCache::ratingThatIsNoNumber_data()
{
    QTest::addColumn<double>("rating");
    QTest::newRow("nan") << std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("infinity") << std::numeric_limits<double>::infinity();
    QTest::newRow("minus infinity") << -std::numeric_limits<double>::infinity();
}

void tst_CatalogCache::ratingThatIsNoNumber()
{
    QFETCH(const double, rating);
    MediaItem item = movie(u"n"_s);
    item.rating = rating;
    CatalogCache::save(u"S"_s, u"movie"_s, sectionWith(item));
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(u"S"_s, u"movie"_s, loaded));
    item.rating = 0;
    QCOMPARE(loaded, sectionWith(item));
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
    CatalogCache::save(u"S"_s, u"movie"_s, {}); // carries the rest over
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(u"S"_s, u"live"_s, loaded));
    QCOMPARE(loaded, saved);
    QList<Episode> loadedEpisodes;
    QVERIFY(CatalogCache::loadEpisodes(u"S"_s, text, day, loadedEpisodes));
    QCOMPARE(loadedEpisodes, episodes);
}

void tst_CatalogCache::loneSurrogatesHarmNothingElse()
{
    // They have no UTF-8 form; whatever they become, the file must stay readable.
    MediaItem item = movie(u"a"_s);
    item.name = u"x"_s + QChar(0xd83d) + u"y"_s + QChar(0xde00);
    CatalogCache::save(u"S"_s, u"movie"_s, {{}, {item, movie(u"b"_s)}});
    CatalogCache::save(u"S"_s, u"live"_s, {});
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(u"S"_s, u"movie"_s, loaded));
    QCOMPARE(loaded.items.size(), 2);
    QVERIFY(loaded.items[0].name.startsWith(u'x') && loaded.items[0].name.contains(u'y'));
    item.name = loaded.items[0].name;
    QCOMPARE(loaded.items[0], item);
    QCOMPARE(loaded.items[1], movie(u"b"_s));
}

void tst_CatalogCache::manyEntries()
{
    CatalogCache::Section saved;
    for (int index = 0; index < 20'000; ++index) {
        saved.categories.append({QString::number(index), u"Category %1"_s.arg(index)});
        saved.items.append(movie(QString::number(index)));
    }
    CatalogCache::save(u"S"_s, u"movie"_s, saved);
    CatalogCache::save(u"S"_s, u"live"_s, saved);
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(u"S"_s, u"movie"_s, loaded));
    QVERIFY(loaded == saved);
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

void tst_CatalogCache::episodesRoundTrip()
{
    const QList<Episode> saved{episode(u"2"_s),
                               episode(u"1"_s),
                               episode(u"2"_s),
                               Episode(),
                               {u"x"_s, {}, std::numeric_limits<qint32>::max(), -5, {}, {}}};
    CatalogCache::saveEpisodes(u"S"_s, u"9"_s, saved);
    QList<Episode> loaded{episode(u"before"_s)};
    QVERIFY(CatalogCache::loadEpisodes(u"S"_s, u"9"_s, day, loaded));
    QCOMPARE(loaded, saved);
}

void tst_CatalogCache::episodesOfSeveralShows()
{
    for (const QString &id : {u"1"_s, u"2"_s, u"10"_s}) {
        CatalogCache::saveEpisodes(u"S"_s, id, {episode(id)});
    }
    for (const QString &id : {u"1"_s, u"2"_s, u"10"_s}) {
        QList<Episode> loaded;
        QVERIFY(CatalogCache::loadEpisodes(u"S"_s, id, day, loaded));
        QCOMPARE(loaded, QList<Episode>{episode(id)});
    }
}

void tst_CatalogCache::savingEpisodesReplacesTheShow()
{
    CatalogCache::saveEpisodes(u"S"_s, u"9"_s, {episode(u"a"_s), episode(u"b"_s)});
    CatalogCache::saveEpisodes(u"S"_s, u"9"_s, {episode(u"c"_s)});
    QList<Episode> loaded;
    QVERIFY(CatalogCache::loadEpisodes(u"S"_s, u"9"_s, day, loaded));
    QCOMPARE(loaded, QList<Episode>{episode(u"c"_s)});
}

void tst_CatalogCache::emptyEpisodeList()
{
    CatalogCache::saveEpisodes(u"S"_s, u"9"_s, {});
    QList<Episode> loaded{episode(u"before"_s)};
    QVERIFY(CatalogCache::loadEpisodes(u"S"_s, u"9"_s, day, loaded));
    QVERIFY(loaded.isEmpty());
}

void tst_CatalogCache::episodesAreSavedNow()
{
    CatalogCache::saveEpisodes(u"S"_s, u"9"_s, {episode(u"a"_s)});
    QList<Episode> loaded;
    QVERIFY(CatalogCache::loadEpisodes(u"S"_s, u"9"_s, 3600, loaded));
}

void tst_CatalogCache::maxAgeOfZeroOrLess_data()
{
    QTest::addColumn<qint64>("maxAge");
    QTest::newRow("zero") << qint64(0);
    QTest::newRow("negative") << qint64(-1);
    QTest::newRow("smallest") << std::numeric_limits<qint64>::min();
}

void tst_CatalogCache::maxAgeOfZeroOrLess()
{
    QFETCH(const qint64, maxAge);
    CatalogCache::saveEpisodes(u"S"_s, u"9"_s, {episode(u"a"_s)});
    QList<Episode> loaded{episode(u"before"_s)};
    QVERIFY(!CatalogCache::loadEpisodes(u"S"_s, u"9"_s, maxAge, loaded));
    QCOMPARE(loaded, QList<Episode>{episode(u"before"_s)});
}

void tst_CatalogCache::sectionsAndEpisodesShareAFile()
{
    CatalogCache::save(u"S"_s, u"series"_s, sectionWith(movie(u"a"_s)));
    CatalogCache::saveEpisodes(u"S"_s, u"9"_s, {episode(u"a"_s)});
    CatalogCache::save(u"S"_s, u"movie"_s, sectionWith(movie(u"b"_s)));
    CatalogCache::Section section;
    QVERIFY(CatalogCache::load(u"S"_s, u"series"_s, section));
    QCOMPARE(section, sectionWith(movie(u"a"_s)));
    QList<Episode> episodes;
    QVERIFY(CatalogCache::loadEpisodes(u"S"_s, u"9"_s, day, episodes));
    QCOMPARE(episodes, QList<Episode>{episode(u"a"_s)});
}

VANTIRO_TEST_GUILESS_MAIN(tst_CatalogCache)
#include "tst_CatalogCache.moc"
