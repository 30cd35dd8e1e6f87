#include "model/CatalogCache.h"
#include "support/TestMain.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

// What is saved can be loaded again; tst_CatalogCacheFiles looks at the file itself.

namespace {

constexpr qint64 day = 86400;

/// What JSON and UTF-8 write in a way of their own.
const QString oddText = u"\ufeff{\"a\\n\":[]},\n\x01\x7f/\u00e9\U0001F600"_s + QChar(0);

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
    void episodesRoundTrip();
    void sectionsAndEpisodesAreIndependent();
    void severalSectionsAtOnce();
    void sourcesAreIndependent();
};

void tst_CatalogCache::init()
{
    PrivateProfile::current().clear();
}

void tst_CatalogCache::neverSaved()
{
    CatalogCache::save(u"S"_s, u"movie"_s, {});
    CatalogCache::saveEpisodes(u"S"_s, u"8"_s, {});
    QCOMPARE(loaded(u"live"_s), untouched());
    QCOMPARE(loaded(u"Movie"_s), untouched());
    QCOMPARE(loaded(u"movie"_s, u"T"_s), untouched());
    constexpr qint64 anyAge = std::numeric_limits<qint64>::max();
    QCOMPARE(loadedEpisodes(u"9"_s, anyAge), untouchedEpisodes);
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
    using Reals = std::numeric_limits<double>;
    MediaItem largest = movie(oddText);
    largest.type = std::numeric_limits<qint32>::max();
    largest.rating = Reals::max();
    largest.addedAt = std::numeric_limits<qint64>::max();
    MediaItem smallest = movie(oddText);
    smallest.type = std::numeric_limits<qint32>::min();
    smallest.rating = Reals::denorm_min();
    smallest.addedAt = std::numeric_limits<qint64>::min();
    MediaItem withHeaders = movie(u"1"_s);
    withHeaders.headers = QString(u"User-Agent=A%20B&Referer=C"_s);
    QTest::newRow("headers of some entries")
        << Section{{}, {movie(u"0"_s), withHeaders, movie(u"2"_s), withHeaders}};
    QTest::newRow("odd texts and numbers") << Section{{{oddText, oddText}}, {largest, smallest}};
}

void tst_CatalogCache::roundTrip()
{
    // Over a section that exists.
    QFETCH(const CatalogCache::Section, saved);
    for (const QString &name : {u"movie"_s, oddText}) {
        CatalogCache::save(u"S"_s, name, sectionWith(movie(u"old"_s)));
        CatalogCache::save(u"S"_s, name, saved);
    }
    QVERIFY(loaded(u"movie"_s) == saved);
    QVERIFY(loaded(oddText) == saved);
}

void tst_CatalogCache::episodesRoundTrip()
{
    constexpr qint32 largest = std::numeric_limits<qint32>::max();
    const QList<Episode> several{
        episode(u"2"_s), episode(oddText), episode(u"2"_s), {}, {u"x"_s, {}, largest, -5, {}, {}}};
    for (const QString &show : {u"9"_s, oddText}) {
        for (const QList<Episode> &saved : {several, QList<Episode>()}) {
            CatalogCache::saveEpisodes(u"S"_s, show, saved);
            QCOMPARE(loadedEpisodes(show), saved);
        }
    }
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

VANTIRO_TEST_GUILESS_MAIN(tst_CatalogCache)
#include "tst_CatalogCache.moc"
