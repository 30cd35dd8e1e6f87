#pragma once

#include <QList>
#include <QString>
#include <QStringView>

/// Whether Windows takes a file of that name, with any suffix, for a device: what is written to it
/// is lost.
inline bool isDeviceName(QStringView name)
{
    const auto is = [name](QLatin1StringView device) {
        return name.compare(device, Qt::CaseInsensitive) == 0;
    };
    const auto isNumbered = [name](QLatin1StringView device) {
        return name.size() == 4 && name.startsWith(device, Qt::CaseInsensitive) &&
               name.back() >= u'1' && name.back() <= u'9';
    };
    return is(QLatin1StringView("con")) || is(QLatin1StringView("prn")) ||
           is(QLatin1StringView("aux")) || is(QLatin1StringView("nul")) ||
           isNumbered(QLatin1StringView("com")) || isNumbered(QLatin1StringView("lpt"));
}

/// A source's name as a file name without suffix: each character that is not an ASCII letter,
/// digit, underscore or hyphen becomes one underscore. On Windows a device's name gets one more.
inline QString safeFileName(const QString &name)
{
    const auto isSafe = [](uint character) {
        return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z') ||
               (character >= '0' && character <= '9') || character == '_' || character == '-';
    };
    // Not by a regular expression: it leaves a name with half a surrogate pair as it is.
    QString safe;
    const QList<uint> characters = name.toUcs4();
    for (const uint character : characters) {
        safe += isSafe(character) ? QChar(character) : QChar(u'_');
    }
#ifdef Q_OS_WIN
    if (isDeviceName(safe)) {
        safe += u'_';
    }
#endif
    return safe;
}
