#include "model/ItemIds.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QList<MediaItem> itemsWithIds(const QStringList &ids)
{
    QList<MediaItem> items;
    for (const QString &id : ids) {
        MediaItem item;
        item.id = id;
        items.append(item);
    }
    return items;
}

} // namespace

class tst_ItemIds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rows_data();
    void rows();
};

void tst_ItemIds::rows_data()
{
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<QStringList>("ids");
    QTest::addColumn<QList<int>>("rows");
    const QStringList abc{u"a"_s, u"b"_s, u"c"_s};
    QTest::newRow("nothing asked for") << abc << QStringList() << QList<int>();
    QTest::newRow("no entries") << QStringList() << abc << QList<int>();
    QTest::newRow("the order of the ids") << abc << QStringList{u"c"_s, u"a"_s} << QList{2, 0};
    QTest::newRow("one is missing") << abc << QStringList{u"c"_s, u"x"_s, u"b"_s} << QList{2, 1};
    QTest::newRow("the first of equal ids")
        << QStringList{u"b"_s, u"a"_s, u"a"_s} << QStringList{u"a"_s} << QList{1};
    QTest::newRow("equal ids before the last one that is asked for")
        << QStringList{u"a"_s, u"a"_s, u"b"_s} << QStringList{u"b"_s, u"a"_s} << QList{2, 0};
    QTest::newRow("an id twice") << abc << QStringList{u"b"_s, u"b"_s, u"a"_s} << QList{1, 0};
    QTest::newRow("case and other scripts") << QStringList{u"A"_s, u"a"_s, u"канал"_s}
                                            << QStringList{u"канал"_s, u"a"_s} << QList{2, 1};
    const QString loneSurrogate(QChar(0xd800));
    QTest::newRow("no UTF-8") << QStringList{u"a"_s, loneSurrogate} << QStringList{loneSurrogate}
                              << QList{1};
    QTest::newRow("an empty id") << QStringList{u"a"_s, u""_s} << QStringList{u""_s} << QList{1};
}

void tst_ItemIds::rows()
{
    QFETCH(QStringList, items);
    QFETCH(QStringList, ids);
    QFETCH(QList<int>, rows);
    QCOMPARE(rowsOfIds(itemsWithIds(items), ids), rows);
}

VANTIRO_TEST_MAIN(tst_ItemIds)
#include "tst_ItemIds.moc"
