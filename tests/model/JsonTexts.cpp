#include "model/JsonTexts.h"

using namespace Qt::StringLiterals;

namespace {

QList<QByteArray> numbers()
{
    QList<QByteArray> texts =
        "0 -0 -0.0 -0e-999 1 -5 12.0 1.5e2 1e5 1E+5 1e-5 4.5 -1.5 0.1 2147483647.0 2147483648 "
        "9007199254740993 9223372036854775807 9223372036854775808 -9223372036854775808 "
        "-9223372036854775809 18446744073709551616 1e18 1e19 -1e19 1e300 1e-300 1e308 "
        "1.7976931348623157e308 1.7976931348623159e308 12e308 -12E308 1e400 5e-324 2e-324 1e-400 "
        "-1E-400 0e400 0e-400 1e99999999999999999999 "
        // Malformed, or accepted by Qt's parser only.
        "01 -01 00 1. - -.5 .5 +1 1e 1e+ 1.e5 0x10 NaN Infinity"_ba.split(' ');
    texts.append("1 2"_ba);
    for (const int digits : {290, 299, 300, 301, 308, 309, 310, 400}) {
        texts.append(QByteArray(digits, '9'));
        texts.append('-' + QByteArray(digits, '9') + ".5");
        texts.append("0." + QByteArray(digits, '0'));
        texts.append("0." + QByteArray(digits, '0') + '1');
    }
    return texts;
}

QList<QByteArray> strings()
{
    QList<QByteArray> contents = R"(
x
12
 12 
-7
-0
1.5
1e3
1e400
nan
-inf
+inf
7,5
0x10
12abc
9223372036854775808
9007199254740993
true
\"\\\/\b\f\n\r\t
\u0041\u00e9\u4e2d
a\ud83d\ude00b
a\ud83db
\ude00
a\ud800
a\udfff
\ude00\ud83d
\ud83d\n
\u0000
\ufeffx
x\ufeff
\uffff\ufffe
\x
\u12
\u12g4
\)"_ba.split('\n');
    contents << QList<QByteArray>{
        "\x01",
        "\n",
        "\t",
        "\x7f",
        QByteArray("a\0b", 3),
        "\xef\xbb\xbf",
        "\xef\xbb\xbfx",
        "\xc3\xa9",
        "\xed\x9f\xbf\xee\x80\x80",
        "\xf4\x8f\xbf\xbf",
        // Not UTF-8.
        "\xff",
        "\xc3",
        "\xc0\x80",
        "\xed\xa0\x80",
        "\xf4\x90\x80\x80",
    };
    QList<QByteArray> texts;
    for (const QByteArray &content : contents) {
        texts.append('"' + content + '"');
    }
    return texts;
}

} // namespace

QList<QByteArray> JsonTexts::values()
{
    return numbers() + strings() +
           QList<QByteArray>{"null", "true", "false",    "nul",     "True",       "[]",
                             "{}",   "[5]",  R"(["5"])", "[1e400]", "[[1e-400]]", R"({"x":12e308})",
                             "{",    "]",    ""};
}

QList<QByteArray> JsonTexts::documents()
{
    QList<QByteArray> texts{
        "",
        " \n",
        "5",
        R"("a")",
        "null",
        "tru",
        "[]",
        "{}",
        " \t\r\n[ ] ",
        "\v[]",
        "[]\f",
        "[]x",
        "[],",
        "[][]",
        "{}{}",
        "[]\x1a",
        QByteArray("[]\0", 3),
        QByteArray("[\0]\0", 4),
        "\xef\xbb\xbf[]",
        "\xef\xbb\xbf{\"a\":1}",
        " \xef\xbb\xbf[]",
        "[]\xef\xbb\xbf",
        "[\xc2\xa0]",
        "[1,]",
        "[,1]",
        "[1 2]",
        "[//x\n]",
        "[/**/]",
        "['a']",
        "[}",
        "{]",
        "{,}",
        R"({"a":1,})",
        R"({"a" 1})",
        R"({a:1})",
        R"({"a":1 "b":2})",
        R"({"a"::1})",
        R"({"a":1;"b":2})",
        R"([null,1,"x",true,[],[{"a":1}],{},{"a":1}])",
        // Duplicate members.
        R"([{"a":1,"a":2},{"a":1,"\u0061":"x"},{"a":1,"a":{}},{"a":1,"a":null}])",
        R"({"a":1,"a":2})",
        R"({"a":1,"b":2,"\u0061":3})",
        // Members of other objects.
        R"([{"x":{"a":1},"b":2},{"a":{"b":1}},{"x":[{"a":1},"a"],"b":2}])",
        // Unusual names.
        R"({"":1," ":2,"\n":3,"\u00e9":4,"\ufeffa":5,"\ud83d":6,"\u0000":7})",
        "{\"\xef\xbb\xbf\xef\xbb\xbf\":1,\"\xef\xbb\xbf\":2}",
        "[{\"\xef\xbb\xbf"
        "a\":1}]",
        R"({ "a" :
            [ 1 , 2 ] , "b":{ } })",
    };
    const QByteArray whole = R"({"live":{"a":[1,"x",{"b":null}]},"c":true})"_ba;
    for (qsizetype length = 1; length < whole.size(); ++length) {
        texts.append(whole.left(length));
        texts.append('[' + whole.left(length));
    }
    for (const int depth : {98, 99, 100, 101, 1021, 1022, 1023, 1024, 1025, 5000}) {
        const QByteArray arrays = QByteArray(depth, '[') + QByteArray(depth, ']');
        const QByteArray objects = R"({"a":)"_ba.repeated(depth) + '1' + QByteArray(depth, '}');
        texts.append(arrays);
        texts.append(objects);
        texts.append(R"([{"b":1,"x":)" + arrays + "}]");
        texts.append(R"({"b":)" + objects + ",\"a\":2}");
        texts.append(QByteArray(depth, '['));
    }
    return texts;
}

QByteArray JsonTexts::mutated(QByteArray text, QRandomGenerator &random)
{
    static const QList<QByteArray> pieces =
        "{|}|[|]|,|:|\"|\\|\\u|\\x| |\n|\t|null|true|false|1|-|.|e5|00|-0|e-400|12e308|1e99|nan|//|"
        "\\ud83d|\\ude00|\\u0000|\xc3|\xff|\xed|\xa0|\xc3\xa9|\"a\":5,|\"a\":{}|\"b\":\"7\"|"
        "\"id\":\"6\",|[[]],|{}{},|\"a\"|\xf0\x9f\x98\x80|99999999999999999999|\"live\":{},|"
        "\"episodes\":{},"_ba.split('|')
        << QByteArray(1, '\0');
    for (int changes = random.bounded(1, 3); changes > 0 && !text.isEmpty(); --changes) {
        const int at = random.bounded(static_cast<int>(text.size()));
        switch (random.bounded(8)) {
        case 0:
            text.truncate(at);
            break;
        case 1:
            text[at] = static_cast<char>(random.bounded(256));
            break;
        case 2:
            text.remove(at, random.bounded(1, 4));
            break;
        default:
            text.replace(at, random.bounded(3),
                         pieces.at(random.bounded(static_cast<int>(pieces.size()))));
            break;
        }
    }
    return text;
}

QByteArray JsonTexts::printable(const QByteArray &text)
{
    return "differs for " + text.left(2000).toPercentEncoding(" !\"#$&'()*+,/:;<=>?@[\\]^_`{|}"_ba);
}
