// Whatever a source is called, its files lie in their folder and hold what was written to them.

#include "model/CatalogCache.h"
#include "model/SafeFileName.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class tst_SafeFileName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void devices_data();
    void devices();
    void names_data();
    void names();
    void aNameIsTooLong();
};

void tst_SafeFileName::devices_data()
{
    QTest::addColumn<bool>("isDevice");
    for (const char *device : {"CON", "con", "Nul", "AUX", "PRN", "COM1", "com9", "LPT1", "lPt9"}) {
        QTest::newRow(device) << true;
    }
    for (const char *name :
         {"", "CO", "CONS", "COM", "COM0", "COM10", "LPT", "LPTA", "1COM", "NULL"}) {
        QTest::addRow("'%s'", name) << false;
    }
}

void tst_SafeFileName::devices()
{
    QFETCH(const bool, isDevice);
    const QString name = QString::fromLatin1(QTest::currentDataTag()).remove(u'\'');
    QCOMPARE(isDeviceName(name), isDevice);
#ifdef Q_OS_WIN
    QCOMPARE(safeFileName(name), isDevice ? name + u'_' : name);
#else
    QCOMPARE(safeFileName(name), name);
#endif
}

void tst_SafeFileName::names_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : {u"CON"_s,
                                u"nul"_s,
                                u"COM1"_s,
                                u"aux."_s,
                                u"a."_s,
                                u"a "_s,
                                u" a"_s,
                                u"a. . "_s,
                                u"."_s,
                                u".."_s,
                                u"../a"_s,
                                u"..\\a"_s,
                                u"/etc/passwd"_s,
                                u"C:\\a"_s,
                                u"a:b"_s,
                                u"\\\\?\\a"_s,
                                u"a*?\"<>|"_s,
                                u"CONIN$"_s,
                                u"COM¹"_s,
                                QString(u'a') + QChar(u'\0') + u'b',
                                QString(QChar(0xd800)) + u'a',
                                u"😀"_s,
                                u"~"_s,
                                u"%TEMP%"_s,
                                u"-rf"_s,
                                QString(200, u'x')}) {
        QTest::newRow(qPrintable(name.left(20).toHtmlEscaped() + QString::number(name.size())))
            << name;
    }
}

void tst_SafeFileName::names()
{
    QFETCH(const QString, name);
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"in/"_s + safeFileName(name) + u".json"_s);
    writeFile(path, "content"_ba);
    QCOMPARE(readFile(path), "content"_ba);
    QCOMPARE(QDir(directory.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList(u"in"_s));
    QCOMPARE(QDir(directory.filePath(u"in"_s)).entryList(QDir::Files | QDir::Hidden),
             QStringList(safeFileName(name) + u".json"_s));

    PrivateProfile::current().clear();
    const CatalogCache::Section stored{{}, {MediaItem()}};
    CatalogCache::save(name, u"live"_s, stored);
    QList<CatalogCache::Section> read;
    QVERIFY(CatalogCache::load(name, {u"live"_s}, read));
    QCOMPARE(read.first().items.size(), 1);
}

// The file system refuses it; nothing else is written.
void tst_SafeFileName::aNameIsTooLong()
{
    PrivateProfile::current().clear();
    const QString name(10'000, u'x');
    CatalogCache::save(name, u"live"_s, {{}, {MediaItem()}});
    QList<CatalogCache::Section> read;
    QVERIFY(!CatalogCache::load(name, {u"live"_s}, read));
    const QDir folder(PrivateProfile::current().appDataDir() + "/catalog_cache"_L1);
    QCOMPARE(folder.entryList(QDir::Files | QDir::Hidden), QStringList());
}

VANTIRO_TEST_GUILESS_MAIN(tst_SafeFileName)
#include "tst_SafeFileName.moc"
