#include "WindowFixture.h"
#include "providers/XtreamCatalog.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QLineEdit>
#include <QListWidget>
#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int loadTimeoutMs = 400000;
const XtreamProvider::CatalogSize size{200, 45000, 150000, 30000};

/// How many rows the six lists have; category lists without "All Categories".
QList<int> shownCounts(const WindowFixture &fixture)
{
    return {fixture.find<QListWidget>(u"liveCategoryList"_s).count() - 1,
            fixture.find<QTableWidget>(u"liveTable"_s).rowCount(),
            fixture.find<QListWidget>(u"movieCategoryList"_s).count() - 1,
            fixture.find<QListWidget>(u"moviePosterList"_s).count(),
            fixture.find<QListWidget>(u"seriesCategoryList"_s).count() - 1,
            fixture.find<QListWidget>(u"seriesPosterList"_s).count()};
}

const QList<int> wholeCounts{size.categories, size.channels,   size.categories,
                             size.films,      size.categories, size.shows};

} // namespace

/// An account as large as the largest that people have.
class tst_BigAccount : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { provider.generateCatalog(size); }
    void loadsAndComesBackFromTheCache();

private:
    void compareWithTheServer(const WindowFixture &fixture) const;

    XtreamProvider provider;
};

void tst_BigAccount::compareWithTheServer(const WindowFixture &fixture) const
{
    QCOMPARE(shownCounts(fixture), wholeCounts);
    const AccountCatalog shown = shownCatalog(fixture);
    // Channels come as the provider sends them, the grids in the order of their sort box.
    QVERIFY(shown[1] == namesOf(parseLiveStreams(provider.reply(XtreamAction::liveStreams))));
    QVERIFY(sorted(shown[3]) ==
            sorted(namesOf(parseVodStreams(provider.reply(XtreamAction::vodStreams)))));
    QVERIFY(sorted(shown[5]) == sorted(namesOf(parseSeries(provider.reply(XtreamAction::series)))));
    for (const int grid : {3, 5}) {
        QVERIFY(std::is_sorted(shown[grid].begin(), shown[grid].end(),
                               [](const QString &a, const QString &b) {
                                   return a.compare(b, Qt::CaseInsensitive) < 0;
                               }));
    }
    QVERIFY(!fixture.overlayShown());
    QVERIFY(fixture.dialogs.seen().isEmpty());
}

void tst_BigAccount::loadsAndComesBackFromTheCache()
{
    WindowFixture fixture;
    WindowFixture::store(sourceFor(provider, u"Big"_s));
    fixture.open();
    QTRY_VERIFY_WITH_TIMEOUT(!fixture.overlayShown(), loadTimeoutMs);
    compareWithTheServer(fixture);
    if (QTest::currentTestFailed()) {
        return;
    }
    // Typing goes through all of it.
    fixture.find<QLineEdit>(u"movieAllSearch"_s).setText(u"zzz no such film"_s);
    QCOMPARE(shownCounts(fixture).at(3), 0);
    fixture.find<QLineEdit>(u"movieAllSearch"_s).clear();
    QCOMPARE(shownCounts(fixture), wholeCounts);
    QCOMPARE(provider.actions().size(), 6);

    fixture.open(); // a restart: a new window over the same profile
    compareWithTheServer(fixture);
    QCOMPARE(provider.actions().size(), 6);
}

VANTIRO_TEST_MAIN(tst_BigAccount)
#include "tst_BigAccount.moc"
