// Several running programs on one settings store: each one's changes reach it, and none is lost.

#include "model/SourceManager.h"
#include "support/TestMain.h"

#include <QDir>
#include <QSet>
#include <QTest>

#include <functional>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

SourceConfig source(const QString &name, const QString &url = {})
{
    SourceConfig config = defaultSourceConfig();
    config.name = name;
    config.url = url;
    return config;
}

/// The sources that a program reads at its start.
QList<SourceConfig> storedSources()
{
    return SourceManager(nullptr).sources();
}

} // namespace

Q_DECLARE_METATYPE(std::function<void(SourceManager &)>)

class tst_SharedSources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { PrivateProfile::current().clear(); }

    void otherProgramsChangesStay_data();
    void otherProgramsChangesStay();
    void programsStoreAtTheSameTime();
};

void tst_SharedSources::otherProgramsChangesStay_data()
{
    using Change = std::function<void(SourceManager &)>;
    QTest::addColumn<Change>("theirs");
    QTest::addColumn<Change>("ours");
    QTest::addColumn<QStringList>("expected"); // name=url
    const auto save = [](const QString &name, const QString &url) {
        return Change([=](SourceManager &manager) { manager.saveSource(source(name, url)); });
    };
    const auto remove = [](const QString &name) {
        return Change([=](SourceManager &manager) { manager.removeSource(name); });
    };
    // A time stamp, as a refresh stores it.
    const Change stamp = [](SourceManager &manager) {
        SourceConfig config = manager.sources().constFirst();
        config.lastUpdated = 1;
        manager.saveSource(config);
    };
    const auto row = [](const char *name, const Change &theirs, const Change &ours,
                        const QStringList &expected) {
        QTest::newRow(name) << theirs << ours << expected;
    };
    const QString a = u"A=a"_s;
    const QString b = u"B=b"_s;
    const QString c = u"C=c"_s;
    const QString d = u"D=d"_s;
    const Change addC = save(u"C"_s, u"c"_s);
    const Change nameAgent = [](SourceManager &manager) {
        SourceConfig config = manager.sources().constFirst();
        config.userAgent = u"Tv/1"_s;
        manager.saveSource(config);
    };
    row("user agent there, refreshed here", nameAgent, stamp, {u"A=a Tv/1"_s, b});
    row("edited there, user agent here", save(u"A"_s, u"new"_s), nameAgent, {u"A=new Tv/1"_s, b});
    row("added there, added here", addC, save(u"D"_s, u"d"_s), {a, b, c, d});
    row("added there, refreshed here", addC, stamp, {a, b, c});
    row("added there, removed here", addC, remove(u"A"_s), {b, c});
    row("added in both", addC, save(u"C"_s, u"new"_s), {a, b, u"C=new"_s});
    const Change editA = save(u"A"_s, u"new"_s);
    row("edited there, refreshed here", editA, stamp, {u"A=new"_s, b});
    row("edited there, another edited here", editA, save(u"B"_s, u"2"_s), {u"A=new"_s, u"B=2"_s});
    row("edited in both", editA, save(u"A"_s, u"newer"_s), {u"A=newer"_s, b});
    row("edited there, removed here", editA, remove(u"A"_s), {b});
    row("removed there, added here", remove(u"A"_s), addC, {b, c});
    row("removed there, edited here", remove(u"A"_s), editA, {b, u"A=new"_s});
    const Change replace = [](SourceManager &manager) {
        QVERIFY(manager.setSources({source(u"B"_s, u"new"_s), source(u"D"_s, u"d"_s)}));
    };
    row("added there, all replaced here", addC, replace, {u"B=new"_s, c, d});
    row("removed in both", remove(u"A"_s), remove(u"A"_s), {b});
}

void tst_SharedSources::otherProgramsChangesStay()
{
    using Change = std::function<void(SourceManager &)>;
    QFETCH(const Change, theirs);
    QFETCH(const Change, ours);
    QFETCH(const QStringList, expected);
    SourceManager here(nullptr);
    here.saveSource(source(u"A"_s, u"a"_s));
    here.saveSource(source(u"B"_s, u"b"_s));
    SourceManager there(nullptr);
    theirs(there);
    ours(here);
    const auto storedUrls = [] {
        QStringList urls;
        for (const SourceConfig &each : storedSources()) {
            urls << (each.name + u'=' + each.url + u' ' + each.userAgent).trimmed();
        }
        return urls;
    };
    QCOMPARE(storedUrls(), expected);
    // It stays so: what is stored next does not bring the old state back.
    here.removeSource(u"unknown"_s);
    QCOMPARE(storedUrls(), expected);
    there.removeSource(u"unknown"_s);
    QCOMPARE(storedUrls(), expected);
}

void tst_SharedSources::programsStoreAtTheSameTime()
{
    constexpr int programs = 4;
    constexpr int additions = 15;
    std::vector<std::thread> threads;
    threads.reserve(programs);
    for (int program = 0; program < programs; ++program) {
        threads.emplace_back([program] {
            SourceManager manager(nullptr);
            for (int number = 0; number < additions; ++number) {
                manager.saveSource(source(u"%1-%2"_s.arg(program).arg(number)));
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    QSet<QString> stored;
    for (const SourceConfig &each : storedSources()) {
        stored.insert(each.name);
    }
    QCOMPARE(stored.size(), programs * additions);
    QVERIFY(QDir(PrivateProfile::current().appDataDir()).isEmpty());
}

VANTIRO_TEST_GUILESS_MAIN(tst_SharedSources)
#include "tst_SharedSources.moc"
