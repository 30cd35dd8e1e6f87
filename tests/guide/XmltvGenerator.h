#pragma once

#include <QByteArray>
#include <QRandomGenerator>
#include <QString>
#include <QStringEncoder>

#include <initializer_list>

/// Makes well-formed guides at random, with all that XML allows and guides contain.
class XmltvGenerator final
{
public:
    explicit XmltvGenerator(quint32 seed)
        : random(seed)
    {}

    /// A document in UTF-8, without a declaration of the encoding.
    QString body(int elements)
    {
        QString text = oneOf({"", "\n", "<!DOCTYPE tv SYSTEM \"xmltv.dtd\">\r\n", "<!-- <tv> -->"});
        text += QStringLiteral("<tv") +
                attribute("generator-info-name", oneOf({"a > b", "x", "&quot;y&quot;"})) +
                QLatin1Char('>');
        for (int number = 0; number < elements; ++number)
            text += between() + (random.bounded(4) == 0 ? channel() : programme());
        return text + between() + QStringLiteral("</tv>") + oneOf({"", "\n", " <!-- end -->"});
    }

private:
    QString oneOf(std::initializer_list<const char *> choices)
    {
        const int index = random.bounded(static_cast<int>(choices.size()));
        return QString::fromUtf8(choices.begin()[index]);
    }

    QString between()
    {
        return oneOf({"", "\n", "\r\n  ", "<!-- <programme start=\"2024\" channel=\"c\"> -->",
                      "text", "<?pi a > b < c?>", "<![CDATA[<channel id=\"no\">]]>",
                      "<other><deep a='>'/>text</other>"});
    }

    QString attribute(const char *name, const QString &value)
    {
        const QLatin1Char quote(random.bounded(2) == 0 ? '"' : '\'');
        return oneOf({" ", "\n", " \t "}) + QLatin1String(name) + oneOf({"=", " = "}) + quote +
               value + quote;
    }

    QString text()
    {
        QString all;
        for (int part = random.bounded(5); part > 0; --part) {
            all += oneOf({"News", " at ", "8 &amp; 9", "&lt;b&gt;", "&#65;&#x42;&#x1F600;", "\r\n",
                          "<![CDATA[5 < 6 & ]] ]> <title>]]>", "<!-- </programme> -->",
                          "<b>bold</b>", "<br/>", "ÄÖÜ ß", "日本", "😀", "&apos;&quot;", "&amp;amp;",
                          "  ", ">", "<?pi </title>?>", "]"});
        }
        return all;
    }

    QString element(const char *name, const QString &attributes, const QString &content)
    {
        const QLatin1String tag(name);
        if (content.isEmpty() && random.bounded(2) == 0)
            return QLatin1Char('<') + tag + attributes + oneOf({"/>", " />"});
        return QLatin1Char('<') + tag + attributes + oneOf({">", " >"}) + content +
               QStringLiteral("</") + tag + oneOf({">", " >"});
    }

    QString language()
    {
        return random.bounded(2) == 0 ? QString()
                                      : attribute("lang", oneOf({"en", "de", "de-AT", ""}));
    }

    QString channel()
    {
        QString content;
        for (int names = random.bounded(4); names > 0; --names)
            content += oneOf({"", "\n"}) + element("display-name", language(), text());
        return element(
            "channel", attribute("id", id()),
            content + element("icon", attribute("src", QStringLiteral("http://a/?b&amp;c")), {}));
    }

    QString id() { return oneOf({"one", "two.de", "three &amp; more", "vier-ä", "5"}); }

    QString time()
    {
        return QString::number(20240101 + random.bounded(28)) +
               oneOf({"201500 +0100", "2015", "000000 -0330", ""});
    }

    QString programme()
    {
        QString attributes = attribute("start", time()) + attribute("channel", id());
        if (random.bounded(4) != 0)
            attributes += attribute("stop", time());
        QString content;
        for (int children = random.bounded(6); children > 0; --children)
            content += between() + child();
        return element("programme", attributes, content);
    }

    QString child()
    {
        switch (random.bounded(6)) {
        case 0:
        case 1:
            return element("title", language(), text());
        case 2:
        case 3:
            return element("desc", language(), text());
        case 4:
            return element("credits", {}, element("actor", {}, text()));
        default:
            return element("rating", attribute("system", QStringLiteral("x")),
                           element("value", {}, text()));
        }
    }

    QRandomGenerator random;
};
