// A text comes back as QString gave it, whatever it holds.

#include "model/CatalogText.h"
#include "support/TestMain.h"

#include <QTest>

#include <utility>

using namespace Qt::StringLiterals;

class tst_CatalogText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsWhatAStringHolds_data();
    void keepsWhatAStringHolds();
    void decodesAsQtDoes_data();
    void decodesAsQtDoes();
    void copiesShareTheText();
    void aMovedTextIsEmpty();
};

void tst_CatalogText::keepsWhatAStringHolds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isUtf8");
    QTest::newRow("nothing") << QString() << true;
    QTest::newRow("ASCII") << u"Channel 1"_s << true;
    QTest::newRow("a zero character") << QString(u'\0') << true;
    QTest::newRow("other scripts") << u"Überraschung Мир 東京 🎬"_s << true;
    QTest::newRow("a byte-order mark inside") << u"a\ufeffb"_s << true;
    QTest::newRow("a byte-order mark in front") << u"\ufeffa"_s << false;
    QTest::newRow("a lone surrogate") << QString(QChar(0xd83d)) + u'x' << false;
    QTest::newRow("surrogates in the wrong order")
        << QString(QChar(0xde00)) + QChar(0xd83d) << false;
}

void tst_CatalogText::keepsWhatAStringHolds()
{
    QFETCH(const QString, text);
    QFETCH(const bool, isUtf8);
    const CatalogText held(text);
    QCOMPARE(held.toString(), text);
    QCOMPARE(held.isEmpty(), text.isEmpty());
    QCOMPARE(held.isUtf8(), isUtf8);
    if (isUtf8) {
        QCOMPARE(held.utf8().toByteArray(), text.toUtf8());
    }
    QVERIFY(held == text);
    QVERIFY(held == CatalogText(text));
    QVERIFY(!(held == CatalogText(text + u'x')));
    QVERIFY(!(CatalogText(u"x"_s) == held));
}

void tst_CatalogText::decodesAsQtDoes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("UTF-8") << "caf\xc3\xa9"_ba;
    QTest::newRow("Latin-1") << "caf\xe9"_ba;
    QTest::newRow("a sequence cut short") << "a\xe6\x9d"_ba;
    QTest::newRow("an encoded surrogate") << "\xed\xa0\xbd"_ba;
    QTest::newRow("a byte-order mark") << "\xef\xbb\xbf"
                                          "a"_ba;
}

void tst_CatalogText::decodesAsQtDoes()
{
    QFETCH(const QByteArray, bytes);
    QCOMPARE(CatalogText::fromUtf8(bytes).toString(), QString::fromUtf8(bytes));
    QVERIFY(CatalogText::fromUtf8(bytes) == QString::fromUtf8(bytes));
}

void tst_CatalogText::copiesShareTheText()
{
    CatalogText first(u"text"_s);
    CatalogText copy(first);
    QCOMPARE(static_cast<const void *>(copy.utf8().data()),
             static_cast<const void *>(first.utf8().data()));
    first = u"other"_s;
    QCOMPARE(copy.toString(), u"text"_s);
    const CatalogText &itself = copy;
    copy = itself;
    QCOMPARE(copy.toString(), u"text"_s);
}

void tst_CatalogText::aMovedTextIsEmpty()
{
    CatalogText first(u"text"_s);
    CatalogText second(std::move(first));
    QVERIFY(first.isEmpty()); // NOLINT: what moving leaves is what is shown
    first = std::move(second);
    QVERIFY(second.isEmpty()); // NOLINT
    QCOMPARE(first.toString(), u"text"_s);
}

VANTIRO_TEST_GUILESS_MAIN(tst_CatalogText)
#include "tst_CatalogText.moc"
