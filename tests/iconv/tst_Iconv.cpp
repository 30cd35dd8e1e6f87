#include "support/TestMain.h"

#include <QTest>

#include <cerrno>

#include <iconv.h>

using namespace Qt::StringLiterals;

namespace {

const iconv_t failedToOpen = reinterpret_cast<iconv_t>(-1); // NOLINT: prescribed by the interface

bool opens(const char *to, const char *from)
{
    iconv_t state = iconv_open(to, from);
    return state != failedToOpen && iconv_close(state) == 0;
}

/// What a conversion left behind.
struct Conversion
{
    QByteArray output;
    qsizetype consumed = 0;
    int error = 0; ///< errno, or 0
};

Conversion convert(const QByteArray &to, const QByteArray &from, QByteArray input,
                   std::size_t capacity = 64)
{
    Conversion result;
    iconv_t state = iconv_open(to.constData(), from.constData());
    if (state == failedToOpen) {
        result.error = errno;
        return result;
    }
    result.output.resize(static_cast<qsizetype>(capacity));
    char *in = input.data();
    char *out = result.output.data();
    auto left = static_cast<std::size_t>(input.size());
    if (iconv(state, &in, &left, &out, &capacity) != 0) {
        result.error = errno;
    }
    result.output.chop(static_cast<qsizetype>(capacity));
    result.consumed = input.size() - static_cast<qsizetype>(left);
    iconv_close(state);
    return result;
}

} // namespace

class tst_Iconv : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names();
    void converts_data();
    void converts();
    void continuesWhenTheOutputIsFull();
    void nothingToConvert();
};

void tst_Iconv::names()
{
    for (const char *name : {"UTF-8", "utf8", "Utf_8", "UTF-16BE", "ISO-8859-1", "ISO_8859-15",
                             "CP1252", "windows-1251", "KOI8-R", "GB18030", "Shift_JIS", "BIG5",
                             "EUC-KR", "MACINTOSH", "CP65001", "UTF-8//TRANSLIT"}) {
        QVERIFY2(opens(name, "ASCII") && opens("ASCII", name), name);
    }
    for (const char *name : {"", "-", "CP", "CP0", "CP99999", "CP4294967296", "ISO-8859-99",
                             "a name that is longer than any encoding has"}) {
        QVERIFY2(!opens(name, "ASCII"), name);
        QCOMPARE(errno, EINVAL);
        QVERIFY2(!opens("ASCII", name), name);
        QCOMPARE(errno, EINVAL);
    }
}

void tst_Iconv::converts_data()
{
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<qsizetype>("consumed");
    QTest::addColumn<int>("error");

    const auto row = [](const char *name, const QByteArray &to, const QByteArray &from,
                        const QByteArray &input, const QByteArray &output) {
        QTest::newRow(name) << to << from << input << output << input.size() << 0;
    };
    const auto fault = [](const char *name, const QByteArray &from, const QByteArray &bad,
                          int error) {
        const QByteArray good = from.startsWith("UTF-16"_ba) ? QByteArray("a\0", 2) : "a"_ba;
        QTest::newRow(name) << "UTF-8"_ba << from << good + bad << "a"_ba << good.size() << error;
    };
    const QByteArray smile = "\xF0\x9F\x98\x80"_ba;
    row("Latin-1", "UTF-8"_ba, "ISO-8859-1"_ba, "\xE4\xFF"_ba, "ä\u00FF"_ba);
    row("Windows-1252", "UTF-8"_ba, "CP1252"_ba, "\x80"_ba, "€"_ba);
    row("a character of two bytes", "UTF-8"_ba, "Shift_JIS"_ba, "a\x93\xFA"_ba, "a日"_ba);
    row("into two bytes", "GBK"_ba, "UTF-8"_ba, "日"_ba, "\xC8\xD5"_ba);
    row("a surrogate pair", "UTF-8"_ba, "UTF-16LE"_ba, "\x3D\xD8\x00\xDE"_ba, smile);
    row("into a surrogate pair", "UTF-16BE"_ba, "UTF-8"_ba, smile, "\xD8\x3D\xDE\x00"_ba);
    row("UTF-32", "UTF-32BE"_ba, "UTF-8"_ba, smile, QByteArray("\0\x01\xF6\0", 4));
    row("a substitute", "ASCII//TRANSLIT"_ba, "UTF-8"_ba, "日"_ba, "?"_ba);
    QTest::newRow("no substitute") << "ASCII"_ba
                                   << "UTF-8"_ba
                                   << "a日"_ba
                                   << "a"_ba << qsizetype{1} << EILSEQ;

    fault("cut UTF-8", "UTF-8"_ba, smile.first(3), EINVAL);
    fault("cut UTF-16", "UTF-16LE"_ba, "a"_ba, EINVAL);
    fault("half a surrogate pair", "UTF-16LE"_ba, "\x3D\xD8"_ba, EINVAL);
    fault("a cut character", "CP932"_ba, "\x93"_ba, EINVAL);
    fault("overlong UTF-8", "UTF-8"_ba, "\xC0\x80"_ba, EILSEQ);
    fault("a surrogate in UTF-8", "UTF-8"_ba, "\xED\xA0\x80"_ba, EILSEQ);
    fault("UTF-8 beyond Unicode", "UTF-8"_ba, "\xF4\x90\x80\x80"_ba, EILSEQ);
    fault("a continuation byte", "UTF-8"_ba, "\x80"_ba, EILSEQ);
    fault("a low surrogate first", "UTF-16LE"_ba, QByteArray("\0\xDC", 2), EILSEQ);
    fault("two high surrogates", "UTF-16LE"_ba, QByteArray("\0\xD8\0\xD8", 4), EILSEQ);
    fault("a byte that ASCII lacks", "ASCII"_ba, "\xE4"_ba, EILSEQ);
    fault("an invalid second byte", "CP932"_ba, "\x93\x20"_ba, EILSEQ);
}

void tst_Iconv::converts()
{
    QFETCH(QByteArray, to);
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, output);
    QFETCH(qsizetype, consumed);
    QFETCH(int, error);

    const Conversion result = convert(to, from, input);
    QCOMPARE(result.output, output);
    QCOMPARE(result.consumed, consumed);
    QCOMPARE(result.error, error);
}

void tst_Iconv::continuesWhenTheOutputIsFull()
{
    const Conversion part = convert("UTF-8"_ba, "ISO-8859-1"_ba, "a\xE4z"_ba, 2);
    QCOMPARE(part.error, E2BIG);
    QCOMPARE(part.output, "a"_ba);
    QCOMPARE(part.consumed, 1);
    QCOMPARE(convert("UTF-8"_ba, "ISO-8859-1"_ba, "a\xE4z"_ba, 4).output, "aäz"_ba);
}

void tst_Iconv::nothingToConvert()
{
    iconv_t state = iconv_open("UTF-8", "CP1252");
    char *none = nullptr;
    QCOMPARE(iconv(state, nullptr, nullptr, nullptr, nullptr), std::size_t{0});
    QCOMPARE(iconv(state, &none, nullptr, nullptr, nullptr), std::size_t{0});
    QCOMPARE(iconv_close(state), 0);
    QCOMPARE(convert("UTF-8"_ba, "CP1252"_ba, {}).error, 0);
}

VANTIRO_TEST_GUILESS_MAIN(tst_Iconv)
#include "tst_Iconv.moc"
