#include "support/TestMain.h"
#include "ui/SnapshotFile.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class tst_SnapshotFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void name_data();
    void name();
    void takesNoFilesPlace();
};

void tst_SnapshotFile::name_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("expected");
    QTest::newRow("as it is called") << u"Night News"_s << u"Night News"_s;
    QTest::newRow("in any script") << u"Новости أخبار"_s << u"Новости أخبار"_s;
    QTest::newRow("no path") << u"../a\\b/c"_s << u"_a_b_c"_s;
    QTest::newRow("nothing that Windows refuses") << u"a:b*c?d\"e<f>g|h"_s << u"a_b_c_d_e_f_g_h"_s;
    QTest::newRow("nothing that is replaced") << u"100% $t"_s << u"100_ _t"_s;
    QTest::newRow("not hidden") << u".hidden"_s << u"hidden"_s;
    QTest::newRow("control characters") << u"a\u0007b"_s << u"a_b"_s;
    QTest::newRow("half a surrogate pair") << (u"a"_s + QChar(0xd800)) << u"a_"_s;
    QTest::newRow("without a name") << QString() << u"Picture"_s;
    QTest::newRow("too long") << QString(300, u'x') << QString(80, u'x');
}

void tst_SnapshotFile::name()
{
    QFETCH(QString, entry);
    QFETCH(QString, expected);
    const QDateTime time(QDate(2026, 3, 4), QTime(5, 6, 7));
    QCOMPARE(snapshotFileName(entry, time), expected + u" 2026-03-04 05-06-07"_s);
}

void tst_SnapshotFile::takesNoFilesPlace()
{
    const QTemporaryDir folder;
    for (const QString &expected : {u"/a.png"_s, u"/a (2).png"_s, u"/a (3).png"_s}) {
        const QString path = unusedPath(folder.path(), u"a"_s);
        QCOMPARE(path, folder.path() + expected);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_SnapshotFile)
#include "tst_SnapshotFile.moc"
