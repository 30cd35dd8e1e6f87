#include "ui/GuideTexts.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("GuideTexts", text);
}

} // namespace

QString clockText(qint64 time, const QTimeZone &zone)
{
    const QLocale locale;
    // Some locales, that of C among them, have seconds even in their short format.
    const QString format = locale.timeFormat(QLocale::ShortFormat).remove(QLatin1String(":ss"));
    return locale.toString(QDateTime::fromSecsSinceEpoch(time, zone).time(), format);
}

QString spanText(const GuideProgramme &programme, const QTimeZone &zone)
{
    return translated(QT_TRANSLATE_NOOP("GuideTexts", "%1 - %2"))
        .arg(clockText(programme.start, zone), clockText(programme.stop, zone));
}

QString dayText(const QDate &day, const QDate &today)
{
    switch (today.daysTo(day)) {
    case -1:
        return translated(QT_TRANSLATE_NOOP("GuideTexts", "Yesterday"));
    case 0:
        return translated(QT_TRANSLATE_NOOP("GuideTexts", "Today"));
    case 1:
        return translated(QT_TRANSLATE_NOOP("GuideTexts", "Tomorrow"));
    default:
        break;
    }
    const QLocale locale;
    return translated(QT_TRANSLATE_NOOP("GuideTexts", "%1 %2"))
        .arg(locale.dayName(day.dayOfWeek(), QLocale::ShortFormat),
             locale.toString(day, QLocale::ShortFormat));
}

QString whenText(qint64 time, qint64 now, const QTimeZone &zone)
{
    constexpr qint64 daysWithAName = 6;
    const QDate day = QDateTime::fromSecsSinceEpoch(time, zone).date();
    const QString clock = clockText(time, zone);
    const qint64 ahead = QDateTime::fromSecsSinceEpoch(now, zone).date().daysTo(day);
    if (ahead == -1) {
        return translated(QT_TRANSLATE_NOOP("GuideTexts", "Yesterday %1")).arg(clock);
    }
    if (ahead == 0) {
        return translated(QT_TRANSLATE_NOOP("GuideTexts", "Today %1")).arg(clock);
    }
    if (ahead == 1) {
        return translated(QT_TRANSLATE_NOOP("GuideTexts", "Tomorrow %1")).arg(clock);
    }
    const QLocale locale;
    const QString date = ahead > 0 && ahead <= daysWithAName
                             ? locale.standaloneDayName(day.dayOfWeek())
                             : locale.toString(day, QLocale::ShortFormat);
    return translated(QT_TRANSLATE_NOOP("GuideTexts", "%1 %2")).arg(date, clock);
}
