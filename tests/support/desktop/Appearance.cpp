#include "support/desktop/Appearance.h"

#include <QDebug>
#include <QFile>
#include <QLocale>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace desktop::Appearance {
namespace {

QString withoutAccelerator(QString text)
{
    static const QRegularExpression accelerator(u"&(.)"_s);
    return text.replace(accelerator, u"\\1"_s);
}

/// Matches the text with any values in its placeholders, which become the groups "v1" and so on.
QRegularExpression patternOf(const QString &text)
{
    QString pattern = QRegularExpression::escape(text);
    pattern.replace(QRegularExpression(u"\\\\%(\\d)"_s), u"(?<v\\1>.+)"_s);
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern));
}

QString withDigitsOf(const QLocale &locale, QString text)
{
    for (int digit = 0; digit < 10; ++digit)
        text.replace(QString::number(digit), locale.toString(digit));
    return text;
}

} // namespace

QString language()
{
    return qEnvironmentVariable("VANTIRO_TOUR_LANGUAGE");
}

int scale()
{
    return std::max(1, qEnvironmentVariableIntValue("VANTIRO_TOUR_SCALE"));
}

QStringList textsFor(const QString &english)
{
    if (language().isEmpty())
        return {english};
    static const Translations translations(
        QStringLiteral(VANTIRO_TRANSLATIONS "/vantiro_%1.ts").arg(language()));
    QStringList texts = translations.of(english);
    for (const QString &text : QStringList(texts))
        texts.append(withDigitsOf(QLocale(language()), text));
    return texts;
}

Translations::Translations(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("Cannot read %s", qPrintable(path));
    QXmlStreamReader xml(&file);
    QString source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == "source"_L1)
            source = xml.readElementText();
        else if (xml.name() == "translation"_L1) // those for a count are in elements of their own
            add(source, xml.readElementText(QXmlStreamReader::SkipChildElements));
    }
}

QStringList Translations::of(const QString &english) const
{
    QStringList result{english};
    for (const Text &text : texts) {
        const QRegularExpressionMatch match = text.pattern.match(english);
        if (!match.hasMatch())
            continue;
        QString filled = text.translated;
        for (const QString &group : text.pattern.namedCaptureGroups()) {
            if (!group.isEmpty())
                filled.replace(u'%' + group.mid(1), match.captured(group));
        }
        result += filled;
    }
    return result;
}

void Translations::add(const QString &english, const QString &translated)
{
    const QStringList lines = english.split(u'\n');
    const QStringList translatedLines = translated.split(u'\n');
    if (lines.size() > 1 && lines.size() == translatedLines.size()) {
        for (qsizetype line = 0; line < lines.size(); ++line)
            add(lines.at(line), translatedLines.at(line));
    }
    texts.append({patternOf(withoutAccelerator(english)), withoutAccelerator(translated)});
}

} // namespace desktop::Appearance
