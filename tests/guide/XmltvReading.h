#pragma once

#include "guide/XmltvScanner.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QXmlStreamReader>

#include <algorithm>

/// @file
/// Guides read by the scanner and by Qt's parser, for comparison.

/// All that a guide tells.
struct XmltvContent
{
    QStringList channels; ///< id and names, separated by "|"
    QList<XmltvProgramme> programmes;
};

inline QString channelText(const XmltvChannel &channel)
{
    return channel.id + QLatin1Char('|') + channel.names.join(QLatin1Char('|'));
}

inline QString programmeText(const XmltvProgramme &programme)
{
    return QStringLiteral("%1 %2-%3 %4 (%5)")
        .arg(programme.channel)
        .arg(programme.start)
        .arg(programme.stop)
        .arg(programme.title, programme.description);
}

inline QStringList texts(const XmltvContent &content)
{
    QStringList all = content.channels;
    for (const XmltvProgramme &programme : content.programmes)
        all << programmeText(programme);
    return all;
}

/// Keeps what a scanner reports.
class XmltvCollector final : public XmltvHandler
{
public:
    void channel(const XmltvChannel &channel) override { content.channels << channelText(channel); }
    void programme(const XmltvProgramme &programme) override { content.programmes << programme; }

    XmltvContent content;
};

/// Reads the document in chunks of that size; 0 reads it whole.
inline XmltvContent scanned(QByteArrayView document, qsizetype chunk = 0,
                            const QString &language = {})
{
    XmltvCollector collector;
    XmltvScanner scanner(collector, language);
    const qsizetype step = chunk > 0 ? chunk : std::max<qsizetype>(1, document.size());
    for (qsizetype at = 0; at < document.size(); at += step)
        scanner.add(document.sliced(at, std::min(step, document.size() - at)));
    scanner.finish();
    return collector.content;
}

namespace XmltvOracle {

inline QString attribute(const QXmlStreamReader &xml, const char *name)
{
    return xml.attributes().value(QLatin1String(name)).toString();
}

/// The first text in the language, otherwise the first one.
struct Choice
{
    QString text;
    bool preferred = false;

    void offer(const QString &offered, bool isPreferred)
    {
        if (!offered.isEmpty() && (text.isEmpty() || (isPreferred && !preferred)))
            *this = {offered, isPreferred};
    }
};

inline void readChannel(QXmlStreamReader &xml, XmltvContent &content)
{
    XmltvChannel channel{attribute(xml, "id").simplified(), {}};
    while (xml.readNextStartElement()) {
        const bool isName = xml.name() == QLatin1String("display-name");
        const QString text =
            xml.readElementText(QXmlStreamReader::IncludeChildElements).simplified();
        if (isName && !text.isEmpty())
            channel.names << text;
    }
    content.channels << channelText(channel);
}

inline void readProgramme(QXmlStreamReader &xml, XmltvContent &content, const QString &language)
{
    XmltvProgramme programme;
    programme.channel = attribute(xml, "channel").simplified();
    programme.start = readXmltvTime(attribute(xml, "start").toUtf8()).value_or(XmltvTime()).seconds;
    const auto stop = readXmltvTime(attribute(xml, "stop").toUtf8()).value_or(XmltvTime());
    programme.stop = stop.seconds > programme.start ? stop.seconds : 0;
    Choice title;
    Choice description;
    while (xml.readNextStartElement()) {
        const QString name = xml.name().toString();
        const bool preferred = !language.isEmpty() && attribute(xml, "lang").startsWith(language);
        const QString text = xml.readElementText(QXmlStreamReader::IncludeChildElements);
        if (name == QLatin1String("title"))
            title.offer(text.simplified(), preferred);
        else if (name == QLatin1String("desc"))
            description.offer(text.trimmed(), preferred);
    }
    programme.title = title.text;
    programme.description = description.text;
    content.programmes << programme;
}

/// Reads a well-formed document with Qt's parser. `error` becomes its complaint.
inline XmltvContent read(const QByteArray &document, const QString &language, QString &error)
{
    XmltvContent content;
    QXmlStreamReader xml(document);
    xml.readNextStartElement();
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("channel"))
            readChannel(xml, content);
        else if (xml.name() == QLatin1String("programme"))
            readProgramme(xml, content, language);
        else
            xml.skipCurrentElement();
    }
    error = xml.hasError() ? xml.errorString() : QString();
    return content;
}

} // namespace XmltvOracle
