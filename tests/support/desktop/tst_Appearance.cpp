// In which texts the end-to-end tests find what they know in English.

#include "support/TestMain.h"
#include "support/desktop/Appearance.h"

#include <QTemporaryFile>
#include <QTest>

using namespace Qt::StringLiterals;
using desktop::Appearance::Translations;

class TestAppearance : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void finds_data();
    void finds();
    void followsTheEnvironment();

private:
    QTemporaryFile file;
};

void TestAppearance::init()
{
    static const QByteArray texts = R"(<?xml version="1.0" encoding="utf-8"?>
<TS version="2.1" language="de"><context><name>Any</name>
<message><source>Save &amp;As...</source><translation>Speichern &amp;unter...</translation></message>
<message><source>Playing: %1</source><translation>Wiedergabe: %1</translation></message>
<message><source>%1 of %2 read</source><translation>Von %2 gelesen: %1</translation></message>
<message><source>Codec: %1
Rate: %2 Hz
</source><translation>Kodierung: %1
Rate: %2 Hz
</translation></message>
<message numerus="yes"><source>%Ln films</source><translation>
<numerusform>%Ln Film</numerusform><numerusform>%Ln Filme</numerusform></translation></message>
</context></TS>)";
    QVERIFY(file.open());
    file.resize(0);
    file.write(texts);
    file.flush();
}

void TestAppearance::finds_data()
{
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("translated");
    QTest::newRow("accelerator") << u"Save As..."_s << u"Speichern unter..."_s;
    QTest::newRow("value") << u"Playing: 100 %"_s << u"Wiedergabe: 100 %"_s;
    QTest::newRow("values in another order") << u"2 of 3 read"_s << u"Von 3 gelesen: 2"_s;
    QTest::newRow("placeholder") << u"Playing: %1"_s << u"Wiedergabe: %1"_s;
    QTest::newRow("line") << u"Codec: mp4a"_s << u"Kodierung: mp4a"_s;
    QTest::newRow("only a part") << u"Now Playing: it"_s << QString();
    QTest::newRow("no text of the program") << u"Ocean Planet"_s << QString();
}

void TestAppearance::finds()
{
    QFETCH(const QString, english);
    QFETCH(const QString, translated);
    QStringList expected{english};
    if (!translated.isEmpty())
        expected.append(translated);
    QCOMPARE(Translations(file.fileName()).of(english), expected);
}

void TestAppearance::followsTheEnvironment()
{
    qunsetenv("VANTIRO_TOUR_LANGUAGE");
    QCOMPARE(desktop::Appearance::textsFor(u"Movies"_s), QStringList{u"Movies"_s});
    qputenv("VANTIRO_TOUR_LANGUAGE", "ar");
    const QStringList texts = desktop::Appearance::textsFor(u"12 %"_s);
    QVERIFY(texts.contains(u"12 %"_s));
    QVERIFY(texts.contains(u"\u0661\u0662 %"_s));
    QVERIFY(desktop::Appearance::textsFor(u"Movies"_s)
                .contains(u"\u0627\u0644\u0623\u0641\u0644\u0627\u0645"_s));
}

VANTIRO_TEST_GUILESS_MAIN(TestAppearance)
#include "tst_Appearance.moc"
