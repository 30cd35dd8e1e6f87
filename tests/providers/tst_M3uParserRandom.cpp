#include "providers/M3uParser.h"
#include "providers/ReferenceM3uParser.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

void compareWithReference(const QString &text)
{
    const M3uParser::Result result = M3uParser::parse(text);
    const M3uParser::Result reference = ReferenceM3uParser::parse(text);
    const bool same = result.items == reference.items && result.categories == reference.categories;
    QVERIFY2(same, qPrintable(u"differs for "_s + QString::fromUtf8(text.toUtf8().toHex())));
}

QString pick(QRandomGenerator &random, const QStringList &choices)
{
    return choices.at(random.bounded(static_cast<int>(choices.size())));
}

void addSeedRows()
{
    QTest::addColumn<quint32>("seed");
    for (const quint32 seed : {1U, 2U, 3U, 4U}) {
        QTest::newRow(qPrintable(u"seed %1"_s.arg(seed))) << seed;
    }
}

} // namespace

/// M3uParser reads random playlists like its reference implementation.
class tst_M3uParserRandom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mutations_data();
    void mutations();
    void randomLines_data();
    void randomLines();
    void binaryText();
};

void tst_M3uParserRandom::mutations_data()
{
    addSeedRows();
}

void tst_M3uParserRandom::mutations()
{
    QFETCH(const quint32, seed);
    QRandomGenerator random(seed);
    const QString sample =
        u"#EXTM3U\r\n#EXTINF:-1 tvg-logo=\"http://h/a.png\" group-title=\"News\",Channel A\r\n"
        u"http://h/1.ts\r\n#EXTINF:0 group-title=\"\u4e2d, \U0001F600\",B, HD\r\n"
        u"#EXTVLCOPT:x\r\n\r\nhttp://h/2.ts\r\n#extinf:-1,\r\nhttp://h/3.ts\r\n"
        u"#EXTINF:-1 group-title='x' tvg-logo=\"\"\r\nhttp://h/4.ts\r\n"_s;
    const QStringList pieces =
        u"\n|\r|\r\n|\"|,|#| |\u00a0|\ufeff|\u2028|=|\ufffd|\t|#EXTINF|group-title=\"|tvg-logo=\"|\v\f"_s
            .split(u'|')
        << QString(QChar(0));
    for (int round = 0; round < 500; ++round) {
        QString text = sample;
        const int changes = 1 + random.bounded(8);
        for (int change = 0; change < changes; ++change) {
            // At whole characters, so that no surrogate is left alone.
            qsizetype at = random.bounded(static_cast<int>(text.size()));
            at -= text.at(at).isLowSurrogate() ? 1 : 0;
            const qsizetype length = text.at(at).isHighSurrogate() ? 2 : 1;
            switch (random.bounded(3)) {
            case 0:
                text.remove(at, length);
                break;
            case 1:
                text.insert(at, pick(random, pieces));
                break;
            default:
                text.replace(at, length, pick(random, pieces));
                break;
            }
        }
        compareWithReference(text);
        if (QTest::currentTestFailed()) {
            return;
        }
    }
}

void tst_M3uParserRandom::randomLines_data()
{
    addSeedRows();
}

void tst_M3uParserRandom::randomLines()
{
    QFETCH(const quint32, seed);
    QRandomGenerator random(seed + 1000);
    const QStringList lineEnds = u"\n|\r\n|\r|\n\r|\r\r\n|\u2028|\n\n"_s.split(u'|');
    const QStringList starts =
        u"#EXTINF|#extinf:|#EXTINF:-1 |#|http://| \t|#EXTM3U|#EXTGRP:|\ufeff|"_s.split(u'|');
    const QStringList words =
        u"group-title=\"G\"|group-title=\"\"|group-title='G'|group-title=\"a,b\"|group-title=\"G|"
        "xgroup-title=\"H\"|Group-Title=\"I\"|group-title =\"J\"|tvg-logo=\"L\"|tvg-logo=\"|"
        "tvg-logo=M\"|\"|,|, |Name|\u4e2d\U0001F600|\u00a0|\u3000 |=|\\\"$^.*("_s.split(u'|')
        << QString(QChar(0)) << QString::fromUtf8("\xe9\xff\xc3");
    for (int round = 0; round < 500; ++round) {
        QString text;
        const int lines = random.bounded(30);
        for (int line = 0; line < lines; ++line) {
            text += pick(random, starts);
            const int count = random.bounded(6);
            for (int word = 0; word < count; ++word) {
                text += pick(random, words);
            }
            text += pick(random, lineEnds);
        }
        compareWithReference(text);
        if (QTest::currentTestFailed()) {
            return;
        }
    }
}

void tst_M3uParserRandom::binaryText()
{
    QRandomGenerator random(7);
    QByteArray bytes(1'000'000, Qt::Uninitialized);
    for (char &byte : bytes) {
        byte = static_cast<char>(random.bounded(256));
    }
    compareWithReference(QString::fromUtf8(bytes));
    compareWithReference(QString::fromLatin1(bytes));
    // Invalid UTF-16: the reference cannot read it, but it must do no harm.
    QVERIFY(M3uParser::parse(QString(1'000'000, QChar(0xd800))).items.isEmpty());
}

VANTIRO_TEST_GUILESS_MAIN(tst_M3uParserRandom)
#include "tst_M3uParserRandom.moc"
