#include "WindowFixture.h"
#include "providers/XtreamCatalog.h"

namespace {

constexpr int loadTimeoutMs = 400000;

} // namespace

/// An account as large as the largest that people have.
class tst_BigAccount : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void loadsAndComesBackFromTheCache();

private:
    void compareWithTheServer() const;

    XtreamProvider provider;
};

void tst_BigAccount::compareWithTheServer() const
{
    const AccountCatalog shown = shownCatalog();
    for (const int categories : {0, 2, 4}) {
        QCOMPARE(shown[categories].size(), 200);
    }
    // Channels come as the provider sends them, the grids in the order of their sort box.
    const auto films = namesOf(parseVodStreams(provider.reply(XtreamAction::vodStreams)));
    const auto series = namesOf(parseSeries(provider.reply(XtreamAction::series)));
    QVERIFY(shown[1] == namesOf(parseLiveStreams(provider.reply(XtreamAction::liveStreams))));
    QVERIFY(sorted(shown[3]) == sorted(films));
    QVERIFY(sorted(shown[5]) == sorted(series));
    for (const int grid : {3, 5}) {
        QVERIFY(std::is_sorted(shown[grid].begin(), shown[grid].end(),
                               [](const QString &a, const QString &b) {
                                   return a.compare(b, Qt::CaseInsensitive) < 0;
                               }));
    }
    QVERIFY(!overlayShown());
    QVERIFY(dialogs.seen().isEmpty());
}

void tst_BigAccount::loadsAndComesBackFromTheCache()
{
    provider.generateCatalog({200, 45000, 150000, 30000});
    store(sourceFor(provider, u"Big"_s));
    open();
    QTRY_VERIFY_WITH_TIMEOUT(!overlayShown(), loadTimeoutMs);
    compareWithTheServer();
    if (QTest::currentTestFailed()) {
        return;
    }
    // Typing goes through all of it.
    auto &search = find<QLineEdit>(u"movieAllSearch"_s);
    const QAbstractItemModel &films = *find<QListWidget>(u"moviePosterList"_s).model();
    search.setText(u"zzz no such film"_s);
    QCOMPARE(films.rowCount(), 0);
    search.clear();
    QCOMPARE(films.rowCount(), 150000);

    open(); // a restart: a new window over the same profile
    QTRY_COMPARE_WITH_TIMEOUT(find<QListWidget>(u"seriesPosterList"_s).count(), 30000,
                              loadTimeoutMs);
    compareWithTheServer();
    QCOMPARE(provider.actions().size(), 6);
}

VANTIRO_TEST_MAIN(tst_BigAccount)
#include "tst_BigAccount.moc"
