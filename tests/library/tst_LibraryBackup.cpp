#include "library/LibraryBackup.h"
#include "library/LibraryFixture.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace Qt::StringLiterals;

// The backup file: what it holds, what stays out of it, and files that are none.

namespace {

SourceConfig account()
{
    SourceConfig source = defaultSourceConfig();
    source.type = SourceType::Xtream;
    source.name = u"Account"_s;
    source.url = u"http://h:8080"_s;
    source.username = u"user"_s;
    source.password = u"pass-word"_s;
    source.userAgent = u"Tv/1.0 (x)"_s;
    source.lastUpdated = 5;
    return source;
}

SourceConfig playlist()
{
    SourceConfig source = defaultSourceConfig();
    source.name = u"Playlist"_s;
    source.url = u"http://h/get.php?username=user&password=pass-word&type=m3u"_s;
    return source;
}

SourceConfig subscription()
{
    SourceConfig source = defaultSourceConfig();
    source.type = SourceType::Zevrino;
    source.name = u"Subscription"_s;
    source.subscriptionKey = u"the-key"_s;
    return source;
}

LibraryBackup::Content sampleContent()
{
    LibraryBackup::Content content{{account(), playlist(), subscription()}, sampleRows(), true};
    content.rows.favorites.append(
        {{u"Playlist"_s, EntryKind::Channel, u"http://h/live/user/pass-word/1.ts"_s, u"One"_s, {}},
         2,
         3});
    content.rows.guideSettings[0].addresses +=
        u"\nhttp://h/xmltv.php?username=user&password=pass-word\n/home/me/guide.xml"_s;
    const LibraryEntry channel{
        u"Playlist"_s, EntryKind::Channel, u"http://h/live/user/pass-word/2.ts"_s, u"Two"_s, {}};
    content.rows.guideCorrections.append({channel, u"two.tv"_s});
    content.rows.reminders.append(reminderOf(channel, 1'700'000'006, 1'700'000'007, u"Film"_s));
    return content;
}

/// The sample with one member replaced; a path like "favorites/0/kind". Removed when undefined.
QByteArray sampleWith(const QStringList &path, const QJsonValue &value)
{
    QJsonObject root =
        QJsonDocument::fromJson(LibraryBackup::write(sampleContent(), true)).object();
    const auto set = [&value](QJsonObject &object, const QString &key) {
        if (value.isUndefined())
            object.remove(key);
        else
            object.insert(key, value);
    };
    if (path.size() == 1) {
        set(root, path.at(0));
    } else {
        QJsonArray rows = root.value(path.at(0)).toArray();
        QJsonObject row = rows.at(0).toObject();
        set(row, path.at(1));
        rows.replace(0, path.size() == 3 ? QJsonValue(u"no object"_s) : row);
        root.insert(path.at(0), rows);
    }
    return QJsonDocument(root).toJson();
}

QString backupFile()
{
    return PrivateProfile::current().root() + u"/backup.json"_s;
}

} // namespace

class tst_LibraryBackup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everythingComesBack();
    void membersAreThoseOfTheDocument();
    void credentialsStayOut();
    void lacksCredentials_data();
    void lacksCredentials();
    void unknownTypeOfSource();
    void membersThatAreMissing_data();
    void membersThatAreMissing();
    void noBackup_data();
    void noBackup();
    void damagedParts_data();
    void damagedParts();
    void files();
    void unusableFiles();
};

void tst_LibraryBackup::everythingComesBack()
{
    QString error;
    const LibraryBackup::Content sample = sampleContent();
    const auto content = LibraryBackup::read(LibraryBackup::write(sample, true), error);
    QVERIFY2(content, qPrintable(error));
    QCOMPARE(content->rows, sample.rows);
    QVERIFY(content->hasCredentials);
    QCOMPARE(content->sources.size(), 3);
    for (int index = 0; index < 3; ++index) {
        const SourceConfig &read = content->sources.at(index);
        const SourceConfig &written = sample.sources.at(index);
        QCOMPARE(read.type, written.type);
        QCOMPARE(read.name, written.name);
        QCOMPARE(read.url, written.url);
        QCOMPARE(read.username, written.username);
        QCOMPARE(read.password, written.password);
        QCOMPARE(read.liveExtension, written.liveExtension);
        QCOMPARE(read.subscriptionKey, written.subscriptionKey);
        QCOMPARE(read.userAgent, written.userAgent);
        QCOMPARE(read.lastUpdated, 0);
    }
    // Stored only where there is one.
    QCOMPARE(LibraryBackup::write(sample, false).count("userAgent"), 1);
}

void tst_LibraryBackup::membersAreThoseOfTheDocument()
{
    const QByteArray document = readFile(QStringLiteral(VANTIRO_BACKUP_DOCUMENT));
    QVERIFY(!document.isEmpty());
    const QJsonObject root =
        QJsonDocument::fromJson(LibraryBackup::write(sampleContent(), true)).object();
    QStringList names = root.keys();
    for (const QJsonValue part : root)
        names += part.toArray().at(0).toObject().keys();
    QVERIFY(names.size() > 30);
    for (const QString &name : std::as_const(names))
        QVERIFY2(document.contains('`' + name.toUtf8() + '`'), qPrintable(name));
}

void tst_LibraryBackup::credentialsStayOut()
{
    const QByteArray json = LibraryBackup::write(sampleContent(), false);
    QVERIFY(!json.contains("pass-word"));
    QVERIFY(!json.contains("the-key"));
    QString error;
    const auto content = LibraryBackup::read(json, error);
    QVERIFY2(content, qPrintable(error));
    QVERIFY(!content->hasCredentials);
    QCOMPARE(content->sources.at(0).username, u"user"_s);
    QCOMPARE(content->sources.at(0).url, u"http://h:8080"_s);
    QCOMPARE(content->sources.at(1).url, u"http://h/get.php?username=user&password=***&type=m3u"_s);
    QCOMPARE(content->rows.favorites.at(1).id, u"http://h/live/user/***/1.ts"_s);
    QCOMPARE(content->rows.progress, sampleRows().progress);
    QCOMPARE(content->rows.guideSettings.at(0).addresses,
             u"account\nhttp://h/guide.xml.gz\n"
             "http://h/xmltv.php?username=user&password=***\n/home/me/guide.xml"_s);
    QCOMPARE(content->rows.guideCorrections.at(1).id, u"http://h/live/user/***/2.ts"_s);
    QCOMPARE(content->rows.reminders.at(1).entryId, u"http://h/live/user/***/2.ts"_s);
    QCOMPARE(content->rows.reminders.at(1).id, u"1700000006 http://h/live/user/***/2.ts"_s);
}

void tst_LibraryBackup::lacksCredentials_data()
{
    QTest::addColumn<SourceConfig>("source");
    QTest::addColumn<bool>("withoutThem"); ///< when the backup leaves them out
    SourceConfig open = defaultSourceConfig();
    open.name = u"Open"_s;
    open.url = u"http://h/list.m3u"_s;
    QTest::newRow("account") << account() << true;
    QTest::newRow("playlist with credentials") << playlist() << true;
    QTest::newRow("playlist without credentials") << open << false;
    QTest::newRow("subscription") << subscription() << true;
}

void tst_LibraryBackup::lacksCredentials()
{
    QFETCH(const SourceConfig, source);
    QFETCH(const bool, withoutThem);
    for (const bool withCredentials : {true, false}) {
        QString error;
        const auto content =
            LibraryBackup::read(LibraryBackup::write({{source}, {}}, withCredentials), error);
        QVERIFY(content);
        QCOMPARE(LibraryBackup::lacksCredentials(content->sources.at(0)),
                 !withCredentials && withoutThem);
    }
}

/// As a newer version may have stored it.
void tst_LibraryBackup::unknownTypeOfSource()
{
    SourceConfig source = playlist();
    source.type = 99;
    LibraryBackup::Content content;
    content.sources = {source};
    content.hasCredentials = false;
    QString error;
    const auto read = LibraryBackup::read(LibraryBackup::write(content, true), error);
    QVERIFY2(read, qPrintable(error));
    QCOMPARE(read->sources.at(0).type, SourceType::Playlist);
    QCOMPARE(read->sources.at(0).url, source.url);
    QVERIFY2(!read->hasCredentials, "a backup was restored without them");
}

void tst_LibraryBackup::membersThatAreMissing_data()
{
    QTest::addColumn<QStringList>("path");
    QTest::addColumn<QJsonValue>("value");
    const QJsonValue missing(QJsonValue::Undefined);
    QTest::newRow("a part") << QStringList{u"history"_s} << missing;
    QTest::newRow("the sources") << QStringList{u"sources"_s} << missing;
    QTest::newRow("a member of a row") << QStringList{u"progress"_s, u"season"_s} << missing;
    QTest::newRow("a member of a source") << QStringList{u"sources"_s, u"password"_s} << missing;
    QTest::newRow("one that nobody knows")
        << QStringList{u"progress"_s, u"colour"_s} << QJsonValue(u"red"_s);
}

void tst_LibraryBackup::membersThatAreMissing()
{
    QFETCH(QStringList, path);
    QFETCH(QJsonValue, value);
    QString error;
    QVERIFY2(LibraryBackup::read(sampleWith(path, value), error), qPrintable(error));
}

void tst_LibraryBackup::noBackup_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no JSON") << QByteArray("#EXTM3U\n");
    QTest::newRow("an array") << QByteArray("[]");
    QTest::newRow("another object") << QByteArray("{\"favorites\":[]}");
    QTest::newRow("another format") << sampleWith({u"format"_s}, u"other-backup"_s);
    const QByteArray whole = LibraryBackup::write(sampleContent(), true);
    QTest::newRow("cut short") << whole.first(whole.size() / 2);
    QTest::newRow("a newer version") << sampleWith({u"version"_s}, 2);
    QTest::newRow("without a version")
        << sampleWith({u"version"_s}, QJsonValue(QJsonValue::Undefined));
}

void tst_LibraryBackup::noBackup()
{
    QFETCH(QByteArray, text);
    QString error;
    QVERIFY(!LibraryBackup::read(text, error));
    QVERIFY(!error.isEmpty());
}

void tst_LibraryBackup::damagedParts_data()
{
    QTest::addColumn<QStringList>("path");
    QTest::addColumn<QJsonValue>("value");
    const QJsonValue missing(QJsonValue::Undefined);
    QTest::newRow("a part that is no array") << QStringList{u"favorites"_s} << QJsonValue(1);
    QTest::newRow("sources that are no array") << QStringList{u"sources"_s} << QJsonValue(1);
    QTest::newRow("a row that is no object")
        << QStringList{u"favorites"_s, u"id"_s, u"row"_s} << missing;
    QTest::newRow("a source that is no object")
        << QStringList{u"sources"_s, u"name"_s, u"row"_s} << missing;
    for (const QString &key : {u"source"_s, u"kind"_s, u"id"_s})
        QTest::addRow("a row without its %s", qPrintable(key))
            << QStringList{u"favorites"_s, key} << missing;
    QTest::newRow("an unknown kind")
        << QStringList{u"favorites"_s, u"kind"_s} << QJsonValue(u"radio"_s);
    QTest::newRow("a text for a number")
        << QStringList{u"favorites"_s, u"place"_s} << QJsonValue(u"7"_s);
    QTest::newRow("a fraction") << QStringList{u"favorites"_s, u"place"_s} << QJsonValue(7.5);
    QTest::newRow("a number that does not fit")
        << QStringList{u"progress"_s, u"season"_s} << QJsonValue(5e9);
    QTest::newRow("a huge number")
        << QStringList{u"progress"_s, u"position"_s} << QJsonValue(1e300);
    QTest::newRow("a number for a flag")
        << QStringList{u"progress"_s, u"watched"_s} << QJsonValue(1);
    QTest::newRow("null") << QStringList{u"history"_s, u"name"_s} << QJsonValue();
    QTest::newRow("an unknown source type")
        << QStringList{u"sources"_s, u"type"_s} << QJsonValue(u"satellite"_s);
    QTest::newRow("a source without a name") << QStringList{u"sources"_s, u"name"_s} << missing;
    QTest::newRow("a number for a password")
        << QStringList{u"sources"_s, u"password"_s} << QJsonValue(1);
}

void tst_LibraryBackup::damagedParts()
{
    QFETCH(QStringList, path);
    QFETCH(QJsonValue, value);
    QString error;
    QVERIFY(!LibraryBackup::read(sampleWith(path, value), error));
    QVERIFY2(error.contains(u'"' + path.at(0) + u'"'), qPrintable(error));
}

void tst_LibraryBackup::files()
{
    QString error;
    writeFile(backupFile(), "older");
    QVERIFY2(LibraryBackup::save(backupFile(), sampleContent(), true, error), qPrintable(error));
#ifndef Q_OS_WIN
    QVERIFY(
        !(QFile::permissions(backupFile()) & (QFileDevice::ReadGroup | QFileDevice::ReadOther |
                                              QFileDevice::WriteGroup | QFileDevice::WriteOther)));
#endif
    const auto content = LibraryBackup::load(backupFile(), error);
    QVERIFY2(content, qPrintable(error));
    QCOMPARE(content->rows, sampleContent().rows);
}

void tst_LibraryBackup::unusableFiles()
{
    QString error;
    QVERIFY(!LibraryBackup::load(backupFile() + u".none"_s, error));
    QVERIFY(!error.isEmpty());
    error.clear();
    QVERIFY(!LibraryBackup::save(PrivateProfile::current().root() + u"/none/backup.json"_s,
                                 sampleContent(), true, error));
    QVERIFY(!error.isEmpty());

    // Not read into memory: a film, say, that was chosen by mistake.
    QFile huge(backupFile());
    QVERIFY(huge.open(QIODevice::WriteOnly));
    QVERIFY(huge.resize(qint64(8) * 1024 * 1024 * 1024));
    huge.close();
    error.clear();
    QVERIFY(!LibraryBackup::load(backupFile(), error));
    QVERIFY(!error.isEmpty());
    QVERIFY(QFile::remove(backupFile()));
}

VANTIRO_TEST_GUILESS_MAIN(tst_LibraryBackup)
#include "tst_LibraryBackup.moc"
