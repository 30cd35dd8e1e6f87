#include "model/CacheFile.h"
#include "model/JsonReader.h"
#include "model/JsonWriter.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

/// What a cache file remembers of itself. That its members are kept is shown by the tests of the
/// catalog cache.
class tst_CacheFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void membersAreReplacedAndAdded();
    void theOtherMembersAreNotRead();
    void aChangedFileIsReadAgain_data();
    void aChangedFileIsReadAgain();
    void aFreshFileOfSomeoneElseIsNotRemembered();
    void placesOfAnOlderTextAreNotKept();
    void textsForQt_data();
    void textsForQt();
    void anyOrderOfCalls();

private:
    QByteArray value(const QString &key) const { return CacheFile(path).value(key); }
    void replace(const QString &key, const QByteArray &json) const
    {
        CacheFile(path).replace(key, json);
    }
    /// Writes a text as another program would, with that age.
    void overwrite(const QByteArray &text, const QDateTime &time) const;

    QTemporaryDir folder;
    QString path;
    int count = 0;
};

void tst_CacheFile::init()
{
    path = folder.filePath(QString::number(++count));
}

void tst_CacheFile::overwrite(const QByteArray &text, const QDateTime &time) const
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
    file.flush();
    QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
}

void tst_CacheFile::membersAreReplacedAndAdded()
{
    replace(u"a"_s, "1");
    QCOMPARE(readFile(path), R"({"a":1})");
    replace(u"b"_s, "[22]");
    QCOMPARE(readFile(path), R"({"a":1,"b":[22]})");
    replace(u"ü\""_s, "{}");
    QCOMPARE(readFile(path), R"({"a":1,"b":[22],"ü\"":{}})");
    replace(u"a"_s, R"("longer")");
    QCOMPARE(readFile(path), R"({"a":"longer","b":[22],"ü\"":{}})");
    replace(u"b"_s, "3");
    QCOMPARE(readFile(path), R"({"a":"longer","b":3,"ü\"":{}})");
    QCOMPARE(value(u"a"_s), R"("longer")");
    QCOMPARE(value(u"b"_s), "3");
    QCOMPARE(value(u"ü\""_s), "{}");
    QCOMPARE(value(u"none"_s), "");
}

void tst_CacheFile::theOtherMembersAreNotRead()
{
    replace(u"a"_s, "[1]");
    replace(u"b"_s, "[2]");
    // Damage that a look at the whole file would find.
    overwrite(R"({"a":]1],"b":[2]})", QFileInfo(path).lastModified());
    QCOMPARE(value(u"b"_s), "[2]");
    replace(u"b"_s, "[3]");
    QCOMPARE(readFile(path), R"({"a":]1],"b":[3]})");
}

void tst_CacheFile::aChangedFileIsReadAgain_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("laterMs");
    QTest::newRow("another time") << R"({"b":[1],"a":[2]})"_ba << 1;
    QTest::newRow("another size") << R"({"b":[1],"a":[2] })"_ba << 0;
}

void tst_CacheFile::aChangedFileIsReadAgain()
{
    QFETCH(const QByteArray, text);
    QFETCH(const int, laterMs);
    replace(u"a"_s, "[1]");
    replace(u"b"_s, "[2]");
    overwrite(text, QFileInfo(path).lastModified().addMSecs(laterMs));
    QCOMPARE(value(u"a"_s), "[2]");
    replace(u"b"_s, "[3]");
    QCOMPARE(value(u"a"_s), "[2]");
    QCOMPARE(value(u"b"_s), "[3]");
}

/// It may change again within the same step of the clock.
void tst_CacheFile::aFreshFileOfSomeoneElseIsNotRemembered()
{
    const QDateTime now = QDateTime::currentDateTime();
    overwrite(R"({"a":[1]})", now);
    QCOMPARE(value(u"a"_s), "[1]");
    overwrite(R"({"b":[2]})", now);
    QCOMPARE(value(u"a"_s), "");
}

void tst_CacheFile::placesOfAnOlderTextAreNotKept()
{
    const QDateTime anHourAgo = QDateTime::currentDateTime().addSecs(-3600);
    overwrite(R"({"a":[1],"b":[2]})", anHourAgo);
    CacheFile file(path);
    const auto read = findJsonMembers(file.readText());
    QVERIFY(read);
    // Another program replaces the file by one in which other members stand there.
    overwrite(R"({"b":[3],"a":[4]})", anHourAgo.addSecs(60));
    file.keepPlaces(*read);
    QCOMPARE(value(u"a"_s), "[4]");
    QCOMPARE(value(u"b"_s), "[3]");
}

void tst_CacheFile::textsForQt_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("a");
    QTest::newRow("without members") << "{}"_ba
                                     << ""_ba;
    QTest::newRow("a member twice") << R"({"a":[1],"a":[2]})"_ba
                                    << "[2]"_ba;
    QTest::newRow("no JSON") << "{"_ba
                             << ""_ba;
}

void tst_CacheFile::textsForQt()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QByteArray, a);
    overwrite(text, QDateTime::currentDateTime().addDays(-1));
    for (int time = 0; time < 2; ++time) {
        QCOMPARE(CacheFile(path).contains(u"a"_s), !a.isEmpty());
        QCOMPARE(value(u"a"_s), a);
    }
    replace(u"b"_s, "[3]");
    QCOMPARE(value(u"a"_s), a);
    QCOMPARE(value(u"b"_s), "[3]");
}

/// Whoever wrote last, the file holds what was written member by member.
void tst_CacheFile::anyOrderOfCalls()
{
    QRandomGenerator random(1);
    JsonMembers expected;
    for (int round = 0; round < 500; ++round) {
        const QString key(1, QChar(u'a' + static_cast<char16_t>(random.bounded(4))));
        const QByteArray json = '"' + QByteArray(random.bounded(20), 'x') + '"';
        expected.insert(key, json);
        if (random.bounded(4) == 0) {
            overwrite(writeJsonMembers(expected), QDateTime::currentDateTime());
        } else {
            replace(key, json);
        }
        QCOMPARE(readFile(path), writeJsonMembers(expected));
        QCOMPARE(value(u"b"_s), expected.value(u"b"_s));
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_CacheFile)
#include "tst_CacheFile.moc"
