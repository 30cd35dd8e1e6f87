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
               << u"updated %1"_s.arg(each.lastUpdated) << each.userAgent;
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

QString stored(const QString &key)
{
    return store().value(key).toString();
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

    void storesUnderFixedKeys();
    void storesAUserAgentOnlyWhereThereIsOne();
    void survivesARestart_data();
    void survivesARestart();
    void savesInPlaceOrAppends();
    void removes();
    void replacesTheList_data();
    void replacesTheList();
    void duplicatesAreKeptAndTheFirstCounts();
    void theListIsReadOnce();
    void lastActiveNameIsWrittenOnceChanged();
    void missingAndMalformedValues();
    void arraySize_data();
    void arraySize();
    void damagedFile_data();
    void damagedFile();
    void damagedMeanwhile();
    void onlyTheOwnerMayRead();
    void unwritableStore();
    void unwritableStoreKeepsTheList();
};

void tst_SourceManager::init()
{
    PrivateProfile::current().clear();
}

void tst_SourceManager::storesUnderFixedKeys()
{
    QVERIFY(SourceManager(nullptr).sources().isEmpty());
    QVERIFY(store().allKeys().isEmpty());
    SourceManager manager(nullptr);
    manager.saveSource(fullSource(u"A"_s));
    manager.saveSource(source(u"B"_s));
    manager.setLastActiveSourceName(u"B"_s);

    QStringList keys{u"lastActiveSource"_s, u"sources/size"_s};
    for (const QString &key : {u"lastUpdated"_s, u"liveExtension"_s, u"name"_s, u"password"_s,
                               u"subscriptionKey"_s, u"type"_s, u"url"_s, u"username"_s}) {
        keys << u"sources/1/"_s + key << u"sources/2/"_s + key;
    }
    keys.sort();
    QStringList storedKeys = store().allKeys();
    storedKeys.sort();
    QCOMPARE(storedKeys, keys);
    QCOMPARE(stored(u"sources/size"_s), u"2"_s);
    QCOMPARE(stored(u"sources/1/type"_s), u"2"_s);
    QCOMPARE(stored(u"sources/1/password"_s), u"secret"_s);
    QCOMPARE(stored(u"sources/1/lastUpdated"_s), u"1700000000"_s);
    QCOMPARE(stored(u"sources/2/name"_s), u"B"_s);
    QCOMPARE(stored(u"lastActiveSource"_s), u"B"_s);
}

void tst_SourceManager::storesAUserAgentOnlyWhereThereIsOne()
{
    SourceManager manager(nullptr);
    manager.saveSource(source(u"A"_s));
    SourceConfig named = source(u"B"_s);
    named.userAgent = u"Tv/1.0 (x; y)"_s;
    manager.saveSource(named);
    QVERIFY(!store().contains(u"sources/1/userAgent"_s));
    QCOMPARE(stored(u"sources/2/userAgent"_s), named.userAgent);
    // It goes with its source, and leaves nothing to the one that takes the place.
    manager.removeSource(u"A"_s);
    QCOMPARE(storedSources(), QList<SourceConfig>{named});
    manager.saveSource(source(u"C"_s));
    QCOMPARE(storedSources(), (QList<SourceConfig>{named, source(u"C"_s)}));
    named.userAgent.clear();
    manager.saveSource(named);
    QCOMPARE(store().allKeys().filter(u"userAgent"_s), QStringList());
}

void tst_SourceManager::survivesARestart_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint32>("type");
    QTest::addColumn<qint64>("lastUpdated");
    using Int32 = std::numeric_limits<qint32>;
    using Int64 = std::numeric_limits<qint64>;
    QTest::newRow("empty") << u""_s << 0 << qint64(0);
    QTest::newRow("signs of settings files")
        << uR"("a\b" 'c' \n, b;c=d%e#f [g])"_s << Int32::max() << Int64::max();
    QTest::newRow("white space and control characters")
        << u"  padded\r\n\x01\x1f\x7f"_s + QChar(0) + u" \t"_s << Int32::min() << Int64::min();
    QTest::newRow("looks like a variant") << u"@Variant(\\0\\0)"_s << 77 << qint64(4'294'967'297);
    QTest::newRow("not ASCII") << u"\u00e9\u4e2d\U0001F600\ufeff"_s << -1 << qint64(-1);
}

void tst_SourceManager::survivesARestart()
{
    QFETCH(const QString, text);
    QFETCH(const qint32, type);
    QFETCH(const qint64, lastUpdated);
    const SourceConfig config{type, text, text, text, text, text, text, lastUpdated, text};
    {
        SourceManager manager(nullptr);
        manager.saveSource(config);
        manager.setLastActiveSourceName(text);
    }
    forgetSettingsInMemory();
    QCOMPARE(fields(storedSources()), fields({config}));
    QCOMPARE(SourceManager(nullptr).lastActiveSourceName(), text);
}

void tst_SourceManager::savesInPlaceOrAppends()
{
    SourceManager manager(nullptr);
    // Names are compared exactly.
    QList<SourceConfig> expected;
    for (const QString &name : {u"My TV"_s, u"my tv"_s, u"My TV "_s, u"My_TV"_s, u""_s}) {
        expected << source(name);
        manager.saveSource(expected.last());
    }
    // Every field is replaced, also by an empty one.
    for (const SourceConfig &config :
         {fullSource(u"my tv"_s), SourceConfig{0, u"my tv"_s, {}, {}, {}, {}, {}, 0}}) {
        expected[1] = config;
        manager.saveSource(config);
        QCOMPARE(fields(manager.sources()), fields(expected));
        QCOMPARE(fields(storedSources()), fields(expected));
    }
}

void tst_SourceManager::removes()
{
    SourceManager manager(nullptr);
    manager.removeSource(u"unknown"_s);
    QCOMPARE(stored(u"sources/size"_s), u"0"_s);
    for (const QString &name : {u"A"_s, u"B"_s, u"C"_s}) {
        manager.saveSource(fullSource(name));
    }
    manager.removeSource(u"A"_s);
    // The entry behind the end stays in the store.
    QCOMPARE(stored(u"sources/3/name"_s), u"C"_s);
    store().remove(u"sources"_s);
    manager.removeSource(u"b"_s); // unknown, but the list is written again
    const QStringList left = fields({fullSource(u"B"_s), fullSource(u"C"_s)});
    QCOMPARE(fields(manager.sources()), left);
    QCOMPARE(fields(storedSources()), left);
    manager.removeSource(u"B"_s);
    manager.removeSource(u"C"_s);
    QCOMPARE(stored(u"sources/size"_s), u"0"_s);
}

void tst_SourceManager::replacesTheList_data()
{
    QTest::addColumn<QStringList>("wanted");
    QTest::newRow("more") << QStringList{u"A"_s, u"B"_s, u"C"_s};
    QTest::newRow("fewer") << QStringList{u"B"_s};
    QTest::newRow("others, in another order") << QStringList{u"D"_s, u"A"_s};
    QTest::newRow("none") << QStringList();
    QTest::newRow("the same") << QStringList{u"A"_s, u"B"_s};
}

void tst_SourceManager::replacesTheList()
{
    QFETCH(const QStringList, wanted);
    SourceManager manager(nullptr);
    manager.saveSource(fullSource(u"A"_s));
    manager.saveSource(source(u"B"_s));
    QList<SourceConfig> sources;
    for (const QString &name : wanted) {
        sources << source(name, u"new"_s);
    }
    QVERIFY(manager.setSources(sources));
    QCOMPARE(fields(manager.sources()), fields(sources));
    QCOMPARE(fields(storedSources()), fields(sources));
    // What is saved next adds to it.
    manager.saveSource(source(u"E"_s));
    QCOMPARE(names(storedSources()), wanted + QStringList{u"E"_s});
}

void tst_SourceManager::duplicatesAreKeptAndTheFirstCounts()
{
    writeSettingsFile(
        "[sources]\nsize=3\n1\\name=A\n1\\url=one\n2\\name=\n3\\name=A\n3\\url=two\n");
    SourceManager manager(nullptr);
    manager.saveSource(source(u"A"_s, u"new"_s));
    QCOMPARE(names(manager.sources()), (QStringList{u"A"_s, u""_s, u"A"_s}));
    QCOMPARE(manager.sources().at(0).url, u"new"_s);
    QCOMPARE(manager.sources().at(2).url, u"two"_s);
    manager.removeSource(u"A"_s);
    QCOMPARE(names(manager.sources()), (QStringList{u""_s, u"A"_s}));
    QCOMPARE(names(storedSources()), (QStringList{u""_s, u"A"_s}));
    QCOMPARE(manager.sources().at(1).url, u"two"_s);
}

void tst_SourceManager::theListIsReadOnce()
{
    SourceManager manager(nullptr);
    manager.saveSource(source(u"A"_s));
    store().setValue(u"sources/1/name"_s, u"X"_s);
    store().setValue(u"lastActiveSource"_s, u"X"_s);
    QCOMPARE(names(manager.sources()), QStringList{u"A"_s});
    QCOMPARE(manager.lastActiveSourceName(), QString());
    manager.saveSource(source(u"B"_s));
    QCOMPARE(names(manager.sources()), (QStringList{u"A"_s, u"B"_s}));
}

void tst_SourceManager::lastActiveNameIsWrittenOnceChanged()
{
    SourceManager manager(nullptr);
    manager.setLastActiveSourceName(QString());
    QVERIFY(store().allKeys().isEmpty());
    manager.setLastActiveSourceName(u"A"_s);
    QCOMPARE(stored(u"lastActiveSource"_s), u"A"_s);
    store().remove(u"lastActiveSource"_s);
    manager.setLastActiveSourceName(u"A"_s);
    // Nor do changes of the list write it.
    manager.saveSource(source(u"A"_s));
    manager.removeSource(u"A"_s);
    QCOMPARE(manager.lastActiveSourceName(), u"A"_s);
    QVERIFY(!store().contains(u"lastActiveSource"_s));
    manager.setLastActiveSourceName(u"a"_s);
    QCOMPARE(stored(u"lastActiveSource"_s), u"a"_s);
    manager.setLastActiveSourceName(QString());
    QCOMPARE(stored(u"lastActiveSource"_s), QString());
}

void tst_SourceManager::missingAndMalformedValues()
{
    const QStringList defaults = fields({{0, {}, {}, {}, {}, u"m3u8"_s, {}, 0}});
    for (const QByteArray &line :
         {""_ba, "1\\type=abc\n"_ba, "1\\type=\n"_ba, "1\\type=1, 2\n"_ba, "1\\url=a, b\n"_ba,
          "1\\url=@Invalid()\n"_ba, "1\\lastUpdated=today\n"_ba,
          "1\\lastUpdated=99999999999999999999\n"_ba}) {
        init();
        writeSettingsFile("[sources]\nsize=1\n" + line);
        forgetSettingsInMemory();
        QCOMPARE(fields(storedSources()), defaults);
    }
    // A number is a text, and an empty value is a value.
    init();
    writeSettingsFile("[sources]\nsize=1\n1\\url=12\n1\\liveExtension=\n");
    forgetSettingsInMemory();
    QCOMPARE(fields(storedSources()), fields({{0, {}, u"12"_s, {}, {}, {}, {}, 0}}));
}

void tst_SourceManager::arraySize_data()
{
    QTest::addColumn<QByteArray>("size");
    QTest::addColumn<int>("count");
    QTest::newRow("missing") << QByteArray() << 0;
    QTest::newRow("word") << "size=many\n"_ba << 0;
    QTest::newRow("negative") << "size=-5\n"_ba << 0;
    QTest::newRow("smaller than the entries") << "size=1\n"_ba << 1;
    QTest::newRow("larger than the entries") << "size=5\n"_ba << 5;
    QTest::newRow("the largest plausible size") << "size=10000\n"_ba << 10'000;
    QTest::newRow("more: the entries are counted") << "size=10001\nx\\name=X\n"_ba << 2;
    QTest::newRow("more: up to the highest index") << "size=2147483647\n7\\name=G\n"_ba << 7;
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
    QTest::newRow("bytes") << QByteArray::fromHex("00ff80010203fffe0a5b5d3d");
    QTest::newRow("open bracket") << "[sources\n1\\na"_ba;
    QTest::newRow("another section without values") << "[other]\nx\n"_ba;
    QTest::newRow("only a size") << "[sources]\nsize=2147483647\n"_ba;
}

void tst_SourceManager::damagedFile()
{
    QFETCH(const QByteArray, text);
    writeSettingsFile(text);
    forgetSettingsInMemory();
    SourceManager manager(nullptr);
    manager.saveSource(source(u"A"_s));
    QCOMPARE(names(storedSources()), QStringList{u"A"_s});
    manager.removeSource(u"A"_s);
    QCOMPARE(names(storedSources()), QStringList());
}

void tst_SourceManager::damagedMeanwhile()
{
#ifdef Q_OS_WIN
    QSKIP("the registry holds the settings");
#endif
    SourceManager manager(nullptr);
    manager.saveSource(source(u"A"_s));
    writeSettingsFile("[sources\n");
    forgetSettingsInMemory();
    manager.saveSource(source(u"B"_s));
    QCOMPARE(names(storedSources()), (QStringList{u"A"_s, u"B"_s}));
}

void tst_SourceManager::onlyTheOwnerMayRead()
{
#ifdef Q_OS_WIN
    QSKIP("The registry protects the settings");
#endif
    constexpr auto owner =
        QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    const QString file = PrivateProfile::current().settingsFile();
    // A new file, and one of an earlier version.
    for (int time = 0; time < 2; ++time) {
        SourceManager(nullptr).saveSource(source(u"A"_s));
        QCOMPARE(QFile::permissions(file), owner);
        QVERIFY(QFile::setPermissions(file, owner | QFile::ReadGroup | QFile::ReadOther));
    }
    SourceManager(nullptr).setLastActiveSourceName(u"A"_s);
    QCOMPARE(QFile::permissions(file), owner);
    QCOMPARE(names(storedSources()), QStringList{u"A"_s});
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

void tst_SourceManager::unwritableStoreKeepsTheList()
{
#ifdef Q_OS_WIN
    QSKIP("The registry is no file that could be moved away");
#endif
    const QString folder = QFileInfo(PrivateProfile::current().settingsFile()).path();
    SourceManager manager(nullptr);
    manager.saveSource(source(u"A"_s));
    const QString aside = folder + u".aside"_s;
    QVERIFY(QDir().rename(folder, aside));
    writeFile(folder, {});
    QVERIFY(!manager.setSources({source(u"B"_s), source(u"C"_s)}));
    QCOMPARE(names(manager.sources()), QStringList{u"A"_s});
    QVERIFY(QFile::remove(folder));
    QVERIFY(QDir().rename(aside, folder));
    // Nothing of it is stored with the next change.
    manager.setLastActiveSourceName(u"A"_s);
    QCOMPARE(names(storedSources()), QStringList{u"A"_s});
    manager.saveSource(source(u"D"_s));
    QCOMPARE(names(storedSources()), (QStringList{u"A"_s, u"D"_s}));
}

VANTIRO_TEST_GUILESS_MAIN(tst_SourceManager)
#include "tst_SourceManager.moc"
