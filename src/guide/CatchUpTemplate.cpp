#include "guide/CatchUpTemplate.h"

#include <QDateTime>
#include <QRegularExpression>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString twoDigits(int number)
{
    return QString::number(number).rightJustified(2, u'0');
}

/// The part of a date that a letter stands for; empty for any other letter.
QString datePart(QChar letter, const QDateTime &time)
{
    switch (letter.unicode()) {
    case u'Y':
        return QString::number(time.date().year());
    case u'm':
        return twoDigits(time.date().month());
    case u'd':
        return twoDigits(time.date().day());
    case u'H':
        return twoDigits(time.time().hour());
    case u'M':
        return twoDigits(time.time().minute());
    case u'S':
        return twoDigits(time.time().second());
    default:
        return {};
    }
}

QString formattedByLetters(const QString &format, const QDateTime &time)
{
    QString text;
    for (const QChar letter : format) {
        const QString part = datePart(letter, time);
        text += part.isEmpty() ? QString(letter) : part;
    }
    return text;
}

/// Writes a format of the kind "yyyyMMddHHmmss".
QString formattedByRuns(QString format, const QDateTime &time)
{
    for (const auto &[run, letter] :
         {std::pair{"yyyy"_L1, u'Y'}, std::pair{"MM"_L1, u'm'}, std::pair{"dd"_L1, u'd'},
          std::pair{"HH"_L1, u'H'}, std::pair{"mm"_L1, u'M'}, std::pair{"ss"_L1, u'S'}}) {
        format.replace(run, datePart(letter, time));
    }
    return format;
}

class Filler
{
public:
    Filler(const ArchivedProgramme &archived, const QTimeZone &timeZone)
        : programme(archived)
        , zone(timeZone)
    {}

    /// The text for what stands between the braces; nothing for what is no placeholder.
    std::optional<QString> valueOf(const QString &placeholder) const
    {
        if (placeholder.startsWith("(b)"_L1) || placeholder.startsWith("(e)"_L1)) {
            const qint64 seconds = placeholder.at(1) == u'b' ? programme.start : programme.stop;
            const QString format = placeholder.sliced(3);
            const bool inUtc = format.endsWith("|UTC"_L1);
            return formattedByRuns(format.section(u'|', 0, 0), timeAt(seconds, inUtc));
        }
        const QString name = placeholder.section(u':', 0, 0);
        const QString format = placeholder.section(u':', 1);
        if (name == "catchup-id"_L1) {
            return programme.id;
        }
        if (name == "duration"_L1) {
            return units(programme.stop - programme.start, format);
        }
        if (name == "offset"_L1) {
            return units(programme.now - programme.start, format);
        }
        if (const auto seconds = secondsOf(name)) {
            return format.isEmpty()
                       ? QString::number(*seconds)
                       : formattedByLetters(format, timeAt(*seconds, name.contains("utc"_L1)));
        }
        const QString part = placeholder.size() == 1
                                 ? datePart(placeholder.front(), timeAt(programme.start, false))
                                 : QString();
        return part.isEmpty() ? std::nullopt : std::optional(part);
    }

private:
    std::optional<qint64> secondsOf(const QString &name) const
    {
        if (name == "utc"_L1 || name == "start"_L1) {
            return programme.start;
        }
        if (name == "utcend"_L1 || name == "end"_L1) {
            return programme.stop;
        }
        if (name == "lutc"_L1 || name == "now"_L1 || name == "timestamp"_L1) {
            return programme.now;
        }
        return std::nullopt;
    }

    QDateTime timeAt(qint64 seconds, bool inUtc) const
    {
        return QDateTime::fromSecsSinceEpoch(seconds, inUtc ? QTimeZone::utc() : zone);
    }

    /// Rounded up, so that neither the beginning nor the end is cut off.
    static QString units(qint64 seconds, const QString &unit)
    {
        const qint64 size = qMax(qint64(1), unit.toLongLong());
        return QString::number((qMax(qint64(0), seconds) + size - 1) / size);
    }

    const ArchivedProgramme &programme;
    const QTimeZone &zone;
};

} // namespace

QString filledCatchUpTemplate(const QString &text, const ArchivedProgramme &programme,
                              const QTimeZone &zone)
{
    static const QRegularExpression placeholder(u"\\$?\\{([^{}]+)\\}"_s);
    const Filler filler(programme, zone);
    QString filled;
    qsizetype end = 0;
    auto matches = placeholder.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        filled += QStringView(text).sliced(end, match.capturedStart() - end);
        filled += filler.valueOf(match.captured(1)).value_or(match.captured());
        end = match.capturedEnd();
    }
    return filled += QStringView(text).sliced(end);
}
