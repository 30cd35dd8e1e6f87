#include "fakeprovider/Gzip.h"
#include "guide/GuideUnpacker.h"
#include "support/TestMain.h"

#include <QTest>

using Result = GuideUnpacker::Result;

namespace {

const QByteArray text = QByteArray("<tv>") + QByteArray(300'000, 'x') + "</tv>";

QByteArray withWrongChecksum(QByteArray packed)
{
    packed[packed.size() - 8] = static_cast<char>(packed.at(packed.size() - 8) ^ 1);
    return packed;
}

struct Unpacked
{
    Result result = Result::Good;
    QByteArray bytes;
};

Unpacked unpack(const QByteArray &file, qsizetype pieceBytes)
{
    Unpacked all;
    GuideUnpacker unpacker([&all](QByteArrayView bytes) {
        all.bytes.append(bytes.data(), bytes.size());
        return true;
    });
    for (qsizetype from = 0; from < file.size() && all.result == Result::Good; from += pieceBytes) {
        all.result = unpacker.add(
            QByteArrayView(file).sliced(from, std::min(pieceBytes, file.size() - from)));
    }
    if (all.result == Result::Good) {
        all.result = unpacker.finish();
    }
    return all;
}

} // namespace

class tst_GuideUnpacker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void files_data();
    void files();
    void bombStopsAtOnce();
};

void tst_GuideUnpacker::files_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<Result>("result");
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray packed = packedWithGzip(text);
    QTest::newRow("plain") << text << Result::Good << text;
    QTest::newRow("empty") << QByteArray() << Result::Good << QByteArray();
    QTest::newRow("shorter than a mark") << QByteArray("<t") << Result::Good << QByteArray("<t");
    QTest::newRow("gzip") << packed << Result::Good << text;
    QTest::newRow("gzip of gzip") << packedWithGzip(packed) << Result::Good << text;
    QTest::newRow("three layers") << packedWithGzip(packedWithGzip(packed))
                                  << Result::UnknownPacking << QByteArray();
    QTest::newRow("two members") << packedWithGzip(text.first(1000)) +
                                        packedWithGzip(text.sliced(1000))
                                 << Result::Good << text;
    QTest::newRow("members within gzip")
        << packedWithGzip(packedWithGzip(text.first(9)) + packedWithGzip(text.sliced(9)))
        << Result::Good << text;
    QTest::newRow("padded with zeros") << packed + QByteArray(700, '\0') << Result::Good << text;
    QTest::newRow("members with zeros between")
        << packedWithGzip(text) + QByteArray(3, '\0') + packedWithGzip("<!-- -->") << Result::Good
        << text + "<!-- -->";
    QTest::newRow("something behind") << packed + "garbage" << Result::Good << text;
    const QByteArray asTheBuffer(128LL * 1024, 'x');
    QTest::newRow("as long as the buffer")
        << packedWithGzip(asTheBuffer) << Result::Good << asTheBuffer;
    QTest::newRow("empty member") << packedWithGzip({}) << Result::Good << QByteArray();
    QTest::newRow("wrong checksum") << withWrongChecksum(packed) << Result::Damaged << text;
    QTest::newRow("no gzip behind its mark")
        << QByteArray("\x1f\x8b nothing of the kind") << Result::Damaged << QByteArray();
    QTest::newRow("XZ") << QByteArray("\xfd"
                                      "7zXZ") +
                               QByteArray(50, 'x')
                        << Result::UnknownPacking << QByteArray();
    QTest::newRow("ZIP within gzip")
        << packedWithGzip("PK\x03\x04 and so on") << Result::UnknownPacking << QByteArray();
}

void tst_GuideUnpacker::files()
{
    QFETCH(QByteArray, file);
    QFETCH(Result, result);
    QFETCH(QByteArray, bytes);
    // With the checksum and the length, which are the last 8 bytes, in a piece of their own, too.
    const qsizetype beforeChecksum = std::max<qsizetype>(1, file.size() - 8);
    for (const qsizetype pieceBytes :
         {qsizetype(1), qsizetype(7), qsizetype(1000), beforeChecksum, qsizetype(1'000'000)}) {
        const Unpacked all = unpack(file, pieceBytes);
        QCOMPARE(all.result, result);
        QVERIFY2(all.bytes == bytes, qPrintable(QString::number(pieceBytes)));
    }
}

void tst_GuideUnpacker::bombStopsAtOnce()
{
    const QByteArray bomb = packedWithGzip(packedWithGzip(QByteArray(64LL * 1024 * 1024, 'x')));
    qsizetype taken = 0;
    qsizetype largest = 0;
    GuideUnpacker unpacker([&](QByteArrayView bytes) {
        taken += bytes.size();
        largest = std::max(largest, bytes.size());
        return taken < 1024LL * 1024;
    });
    QCOMPARE(unpacker.add(bomb), Result::Stopped);
    QVERIFY(largest <= 256LL * 1024);
    QVERIFY(taken <= 2LL * 1024 * 1024);
}

VANTIRO_TEST_GUILESS_MAIN(tst_GuideUnpacker)
#include "tst_GuideUnpacker.moc"
