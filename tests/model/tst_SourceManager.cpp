#include "model/SourceManager.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

const QStringList entryKeys{u"lastUpdated"_s,     u"liveExtension"_s, u"name"_s, u"password"_s,
                            u"subscriptionKey"_s, u"type"_s,          u"url"_s,  u"username"_s};

SourceConfig source(const QString &name, const QString &url = u"http://host/list.m3u"_s)
{
    SourceConfig config = defaultSourceConfig();
    config.name = name;
    config.url = url;
    return config;
}

SourceConfig fullSource(const QString &name)
{
    return {
        SourceType::Zevrino, name,         u"http://host:8080"_s, u"joe"_s, u"secret"_s, u"ts"_s,
        u"KEY-1"_s,          1'700'000'000};
}

QStringList names(const QList<SourceConfig> &sources)
{
    QStringList result;
    for (const SourceConfig &each : sources) {
        result << each.name;
    }
    return result;
}

/// All fields of the sources, so that QCOMPARE shows which one differs.
QStringList fields(const QList<SourceConfig> &sources)
{
    QStringList result;
    for (const SourceConfig &each : sources) {
        result << u"type %1"_s.arg(each.type) << each.name << each.url << each.username
               << each.password << each.liveExtension << each.subscriptionKey
               << u"updated %1"_s.arg(each.lastUpdated);
    }
    return result;
}

/// The sources that a new manager reads from the store.
QList<SourceConfig> storedSources()
{
    return SourceManager(nullptr).sources();
}

QSettings store()
{
    return QSettings(u"Vantiro"_s, u"Player"_s);
}

QVariant stored(const QString &key)
{
    return QSettings(u"Vantiro"_s, u"Player"_s).value(key);
}

/// Replaces the stored settings by the text of a settings file.
void writeSettingsFile(const QByteArray &text)
{
    const QString path = PrivateProfile::current().settingsFile();
    writeFile(path, text);
#ifdef Q_OS_WIN
    // The program keeps its settings in the registry.
    const QSettings written(path, QSettings::IniFormat);
    QSettings registry(u"Vantiro"_s, u"Player"_s);
    for (const QString &key : written.allKeys())
        registry.setValue(key, written.value(key));
#endif
}

/// QSettings caches a file until its time stamp changes; this makes the next reader parse the file,
/// as after a restart.
void forgetSettingsInMemory()
{
#ifdef Q_OS_WIN
    return; // the registry is read each time
#endif
    QFile file(PrivateProfile::current().settingsFile());
    QVERIFY(file.open(QIODevice::ReadWrite));
    const QDateTime later = QFileInfo(file).lastModified().addSecs(100);
    QVERIFY(file.setFileTime(later, QFileDevice::FileModificationTime));
}

} // namespace

class tst_SourceManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void emptyStore();
    void storesUnderFixedKeys();
    void textsSurviveARestart_data();
    void textsSurviveARestart();
    void numbersSurviveARestart_data();
    void numbersSurviveARestart();

    void savesInPlaceOrAppends();
    void namesAreComparedExactly();
    void removes();
    void removingAnUnknownNameRewritesTheList();
    void removingFromAnEmptyListWritesIt();
    void duplicatesAreKeptAndTheFirstCounts();
    void theListIsReadOnce();

    void lastActiveNameIsWrittenAtOnce();
    void theSameLastActiveNameIsNotWritten();
    void sourcesDoNotChangeTheLastActiveName();

    void missingKeysGiveDefaults();
    void wrongTypes_data();
    void wrongTypes();
    void arraySize_data();
    void arraySize();
    void damagedFile_data();
    void damagedFile();
    void unwritableStore();
    void isAChildOfItsParent();
};

void tst_SourceManager::init()
{
    PrivateProfile::current().clear();
}

void tst_SourceManager::emptyStore()
{
    const SourceManager manager(nullptr);
    QVERIFY(manager.sources().isEmpty());
    QCOMPARE(manager.lastActiveSourceName(), QString());
    QVERIFY(!QFile::exists(PrivateProfile::current().settingsFile()));
}

void tst_SourceManager::storesUnderFixedKeys()
{
    SourceManager manager(nullptr);
    manager.saveSource(fullSource(u"A"_s));
    manager.saveSource(source(u"B"_s));
    manager.setLastActiveSourceName(u"B"_s);

    QStringList expected{u"lastActiveSource"_s, u"sources/size"_s};
    for (const QString &key : entryKeys) {
        expected << u"sources/1/"_s + key << u"sources/2/"_s + key;
    }
    expected.sort();
    QStringList keys = store().allKeys();
    keys.sort();
    QCOMPARE(keys, expected);
    QCOMPARE(stored(u"sources/size"_s).toInt(), 2);
    QCOMPARE(stored(u"sources/1/type"_s).toString(), u"2"_s);
    QCOMPARE(stored(u"sources/1/password"_s).toString(), u"secret"_s);
    QCOMPARE(stored(u"sources/1/lastUpdated"_s).toString(), u"1700000000"_s);
    QCOMPARE(stored(u"sources/2/name"_s).toString(), u"B"_s);
    QCOMPARE(stored(u"lastActiveSource"_s).toString(), u"B"_s);
}

void tst_SourceManager::textsSurviveARestart_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("quotes and backslashes") << uR"("a\b" 'c' \n \\)"_s;
    QTest::newRow("list separators") << u"a, b;c=d%e#f [g]"_s;
    QTest::newRow("white space around") << u"  padded \t"_s;
    QTest::newRow("line ends") << u"a\r\nb\nc"_s;
    QTest::newRow("control characters") << u"\x01\x02\x1f\x7f"_s;
    QTest::newRow("not ASCII") << u"\u00e9\u4e2d\u0627\U0001F600\u200b\ufeff"_s;
    QTest::newRow("looks like a variant") << u"@Variant(\\0\\0)"_s;
    QTest::newRow("at signs") << u"@@at@"_s;
    QTest::newRow("invalid variant") << u"@Invalid()"_s;
    QTest::newRow("escape followed by a digit") << u"\x01"_s + u"1f"_s;
    QTest::newRow("NUL inside") << u"a"_s + QChar(0) + u"b"_s;
    QTest::newRow("long") << QString(100'000, u'x');
}

void tst_SourceManager::textsSurviveARestart()
{
    QFETCH(const QString, text);
    const SourceConfig config{SourceType::Xtream, text, text, text, text, text, text, 5};
    {
        SourceManager manager(nullptr);
        manager.saveSource(config);
        manager.setLastActiveSourceName(text);
    }
    forgetSettingsInMemory();
    const SourceManager manager(nullptr);
    QCOMPARE(fields(manager.sources()), fields({config}));
    QCOMPARE(manager.lastActiveSourceName(), text);
}

void tst_SourceManager::numbersSurviveARestart_data()
{
    QTest::addColumn<qint32>("type");
    QTest::addColumn<qint64>("lastUpdated");
    QTest::newRow("zero") << 0 << qint64(0);
    QTest::newRow("unknown type") << 77 << qint64(1);
    QTest::newRow("negative") << -1 << qint64(-1);
    QTest::newRow("beyond 32 bits") << 1 << qint64(4'294'967'297);
    QTest::newRow("largest") << std::numeric_limits<qint32>::max()
                             << std::numeric_limits<qint64>::max();
    QTest::newRow("smallest") << std::numeric_limits<qint32>::min()
                              << std::numeric_limits<qint64>::min();
}

void tst_SourceManager::numbersSurviveARestart()
{
    QFETCH(const qint32, type);
    QFETCH(const qint64, lastUpdated);
    SourceConfig config = source(u"A"_s);
    config.type = type;
    config.lastUpdated = lastUpdated;
    SourceManager(nullptr).saveSource(config);
    forgetSettingsInMemory();
    QCOMPARE(fields(storedSources()), fields({config}));
}

void tst_SourceManager::savesInPlaceOrAppends()
{
    SourceManager manager(nullptr);
    for (const QString &name : {u"C"_s, u"A"_s, u"B"_s}) {
        manager.saveSource(source(name));
    }
    // Every field is replaced, also by an empty one.
    for (const SourceConfig &config :
         {fullSource(u"A"_s), SourceConfig{0, u"A"_s, {}, {}, {}, {}, {}, 0}}) {
        manager.saveSource(config);
        const QStringList expected = fields({source(u"C"_s), config, source(u"B"_s)});
        QCOMPARE(fields(manager.sources()), expected);
        QCOMPARE(fields(storedSources()), expected);
    }
}

void tst_SourceManager::namesAreComparedExactly()
{
    SourceManager manager(nullptr);
    const QStringList all{u"My TV"_s, u"my tv"_s, u"My TV "_s, u"My_TV"_s, u""_s};
    for (const QString &name : all) {
        manager.saveSource(source(name));
    }
    QCOMPARE(names(manager.sources()), all);
    manager.removeSource(u"MY TV"_s);
    QCOMPARE(names(manager.sources()), all);
    manager.removeSource(u"my tv"_s);
    manager.removeSource(u""_s);
    const QStringList left{u"My TV"_s, u"My TV "_s, u"My_TV"_s};
    QCOMPARE(names(manager.sources()), left);
}

void tst_SourceManager::removes()
{
    SourceManager manager(nullptr);
    for (const QString &name : {u"A"_s, u"B"_s, u"C"_s}) {
        manager.saveSource(fullSource(name));
    }
    manager.removeSource(u"A"_s);
    const QStringList left = fields({fullSource(u"B"_s), fullSource(u"C"_s)});
    QCOMPARE(fields(manager.sources()), left);
    QCOMPARE(fields(storedSources()), left);
    QCOMPARE(stored(u"sources/size"_s).toInt(), 2);
    // The entry behind the end stays in the store.
    QCOMPARE(stored(u"sources/3/name"_s).toString(), u"C"_s);
}

void tst_SourceManager::removingAnUnknownNameRewritesTheList()
{
    SourceManager manager(nullptr);
    manager.saveSource(fullSource(u"A"_s));
    store().remove(u"sources"_s);
    manager.removeSource(u"unknown"_s);
    QCOMPARE(names(manager.sources()), QStringList{u"A"_s});
    QCOMPARE(fields(storedSources()), fields({fullSource(u"A"_s)}));
}

void tst_SourceManager::removingFromAnEmptyListWritesIt()
{
    SourceManager(nullptr).removeSource(u"unknown"_s);
    QVERIFY(store().contains(u"sources/size"_s));
    QCOMPARE(stored(u"sources/size"_s).toInt(), 0);
    // The last source, too, leaves an empty list.
    SourceManager manager(nullptr);
    manager.saveSource(source(u"A"_s));
    manager.removeSource(u"A"_s);
    QCOMPARE(stored(u"sources/size"_s).toInt(), 0);
    QVERIFY(storedSources().isEmpty());
}

void tst_SourceManager::duplicatesAreKeptAndTheFirstCounts()
{
    writeSettingsFile("[sources]\nsize=4\n1\\name=A\n1\\url=one\n2\\name=\n3\\name=A\n3\\url=two\n"
                      "4\\name=\n");
    SourceManager manager(nullptr);
    const QStringList all{u"A"_s, u""_s, u"A"_s, u""_s};
    QCOMPARE(names(manager.sources()), all);
    manager.saveSource(source(u"A"_s, u"new"_s));
    QCOMPARE(names(manager.sources()), all);
    QCOMPARE(manager.sources().at(0).url, u"new"_s);
    QCOMPARE(manager.sources().at(2).url, u"two"_s);
    manager.removeSource(u"A"_s);
    const QStringList left{u""_s, u"A"_s, u""_s};
    QCOMPARE(names(manager.sources()), left);
    QCOMPARE(manager.sources().at(1).url, u"two"_s);
    QCOMPARE(names(storedSources()), left);
}

void tst_SourceManager::theListIsReadOnce()
{
    SourceManager manager(nullptr);
    manager.saveSource(source(u"A"_s));
    QSettings(u"Vantiro"_s, u"Player"_s).setValue(u"sources/1/name"_s, u"X"_s);
    QSettings(u"Vantiro"_s, u"Player"_s).setValue(u"lastActiveSource"_s, u"X"_s);
    QCOMPARE(names(manager.sources()), QStringList{u"A"_s});
    QCOMPARE(manager.lastActiveSourceName(), QString());
    manager.saveSource(source(u"B"_s));
    const QStringList both{u"A"_s, u"B"_s};
    QCOMPARE(names(storedSources()), both);
}

void tst_SourceManager::lastActiveNameIsWrittenAtOnce()
{
    SourceManager manager(nullptr);
    manager.setLastActiveSourceName(u"A, B"_s);
    QCOMPARE(manager.lastActiveSourceName(), u"A, B"_s);
    QCOMPARE(stored(u"lastActiveSource"_s).toString(), u"A, B"_s);
    QCOMPARE(SourceManager(nullptr).lastActiveSourceName(), u"A, B"_s);
    manager.setLastActiveSourceName(QString());
    QCOMPARE(SourceManager(nullptr).lastActiveSourceName(), QString());
    QVERIFY(!store().contains(u"sources/size"_s));
}

void tst_SourceManager::theSameLastActiveNameIsNotWritten()
{
    SourceManager manager(nullptr);
    manager.setLastActiveSourceName(QString());
    QVERIFY(!store().contains(u"lastActiveSource"_s));
    manager.setLastActiveSourceName(u"A"_s);
    store().remove(u"lastActiveSource"_s);
    manager.setLastActiveSourceName(u"A"_s);
    QVERIFY(!store().contains(u"lastActiveSource"_s));
    manager.setLastActiveSourceName(u"a"_s);
    QCOMPARE(stored(u"lastActiveSource"_s).toString(), u"a"_s);
}

void tst_SourceManager::sourcesDoNotChangeTheLastActiveName()
{
    SourceManager manager(nullptr);
    manager.saveSource(source(u"A"_s));
    manager.setLastActiveSourceName(u"A"_s);
    store().remove(u"lastActiveSource"_s);
    manager.saveSource(source(u"A"_s));
    manager.removeSource(u"A"_s);
    QCOMPARE(manager.lastActiveSourceName(), u"A"_s);
    QVERIFY(!store().contains(u"lastActiveSource"_s));
}

void tst_SourceManager::missingKeysGiveDefaults()
{
    writeSettingsFile("[sources]\n1\\name=A\nsize=2\n");
    QCOMPARE(fields(storedSources()), fields({{0, u"A"_s, {}, {}, {}, u"m3u8"_s, {}, 0},
                                              {0, {}, {}, {}, {}, u"m3u8"_s, {}, 0}}));
    // An empty value is a value.
    writeSettingsFile("[sources]\n1\\name=A\n1\\liveExtension=\nsize=1\n");
    forgetSettingsInMemory();
    QCOMPARE(fields(storedSources()), fields({{0, u"A"_s, {}, {}, {}, {}, {}, 0}}));
}

void tst_SourceManager::wrongTypes_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<qint32>("type");
    QTest::addColumn<QString>("url");
    QTest::addColumn<qint64>("lastUpdated");
    QTest::newRow("type is a word") << "1\\type=abc\n"_ba << 0 << QString() << qint64(0);
    QTest::newRow("type is empty") << "1\\type=\n"_ba << 0 << QString() << qint64(0);
    QTest::newRow("type is a list") << "1\\type=1, 2\n"_ba << 0 << QString() << qint64(0);
    QTest::newRow("url is a number") << "1\\url=12\n"_ba << 0 << u"12"_s << qint64(0);
    QTest::newRow("url is a list") << "1\\url=a, b\n"_ba << 0 << QString() << qint64(0);
    QTest::newRow("url is invalid") << "1\\url=@Invalid()\n"_ba << 0 << QString() << qint64(0);
    QTest::newRow("lastUpdated is a word")
        << "1\\lastUpdated=today\n"_ba << 0 << QString() << qint64(0);
    QTest::newRow("lastUpdated is beyond 64 bits")
        << "1\\lastUpdated=99999999999999999999\n"_ba << 0 << QString() << qint64(0);
}

void tst_SourceManager::wrongTypes()
{
    QFETCH(const QByteArray, lines);
    QFETCH(const qint32, type);
    QFETCH(const QString, url);
    QFETCH(const qint64, lastUpdated);
    writeSettingsFile("[sources]\nsize=1\n" + lines);
    const QList<SourceConfig> sources = storedSources();
    QCOMPARE(sources.size(), 1);
    QCOMPARE(sources.first().type, type);
    QCOMPARE(sources.first().url, url);
    QCOMPARE(sources.first().lastUpdated, lastUpdated);
}

void tst_SourceManager::arraySize_data()
{
    QTest::addColumn<QByteArray>("size");
    QTest::addColumn<int>("count");
    QTest::newRow("missing") << QByteArray() << 0;
    QTest::newRow("word") << "size=many\n"_ba << 0;
    QTest::newRow("negative") << "size=-5\n"_ba << 0;
    QTest::newRow("zero hides the entries") << "size=0\n"_ba << 0;
    QTest::newRow("smaller than the entries") << "size=1\n"_ba << 1;
    QTest::newRow("larger than the entries") << "size=5\n"_ba << 5;
    QTest::newRow("beyond any number") << "size=99999999999999999999\n"_ba << 0;
    QTest::newRow("the largest plausible size") << "size=10000\n"_ba << 10'000;
    QTest::newRow("more: the entries are counted") << "size=10001\n"_ba << 2;
    QTest::newRow("more: up to the highest index") << "size=2147483647\n7\\name=G\n"_ba << 7;
    QTest::newRow("more: other groups do not count") << "size=10001\nx\\name=X\n"_ba << 2;
    QTest::newRow("more: an absurd index") << "size=10001\n1000000\\name=X\n"_ba << 10'000;
}

void tst_SourceManager::arraySize()
{
    QFETCH(const QByteArray, size);
    QFETCH(const int, count);
    writeSettingsFile("[sources]\n1\\name=A\n2\\name=B\n" + size);
    const SourceManager manager(nullptr);
    QCOMPARE(manager.sources().size(), count);
    QCOMPARE(names(manager.sources()).mid(0, 2), (QStringList{u"A"_s, u"B"_s}.mid(0, count)));
}

void tst_SourceManager::damagedFile_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("binary") << QByteArray::fromHex("00ff80010203fffe0a5b5d3d");
    QTest::newRow("half a line") << "[sources\n1\\na"_ba;
    QTest::newRow("no entries but an absurd size") << "[sources]\nsize=2147483647\n"_ba;
}

void tst_SourceManager::damagedFile()
{
    QFETCH(const QByteArray, text);
    writeSettingsFile(text);
    SourceManager manager(nullptr);
    // Whatever size the file claims, the start must not exhaust the memory.
    QVERIFY(manager.sources().size() <= 10'000);
    manager.saveSource(source(u"A"_s));
    QVERIFY(names(storedSources()).contains(u"A"_s));
}

void tst_SourceManager::unwritableStore()
{
    // A file in the place of the settings' folder.
    const QString folder = QFileInfo(PrivateProfile::current().settingsFile()).path();
    QDir(folder).removeRecursively();
    writeFile(folder, {});

    SourceManager manager(nullptr);
    QVERIFY(manager.sources().isEmpty());
    manager.saveSource(source(u"A"_s));
    manager.setLastActiveSourceName(u"A"_s);
    QCOMPARE(names(manager.sources()), QStringList{u"A"_s});
    QCOMPARE(manager.lastActiveSourceName(), u"A"_s);
    manager.removeSource(u"A"_s);
    QVERIFY(manager.sources().isEmpty());
    QVERIFY(QFileInfo(folder).isFile());
    QVERIFY(QFile::remove(folder));
}

void tst_SourceManager::isAChildOfItsParent()
{
    QObject parent;
    const SourceManager *manager = new SourceManager(&parent);
    QCOMPARE(manager->parent(), &parent);
}

VANTIRO_TEST_GUILESS_MAIN(tst_SourceManager)
#include "tst_SourceManager.moc"
