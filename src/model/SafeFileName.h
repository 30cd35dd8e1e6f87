#pragma once

#include <QList>
#include <QString>

/// A source's name as a file name without suffix: each character that is not an ASCII letter,
/// digit, underscore or hyphen becomes one underscore.
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
    return safe;
}
