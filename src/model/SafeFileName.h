#pragma once

#include <QRegularExpression>
#include <QString>

/// A source's name as a file name without suffix: each character that is not an ASCII letter,
/// digit, underscore or hyphen becomes one underscore.
inline QString safeFileName(QString name)
{
    static const QRegularExpression unsafe(QStringLiteral("[^A-Za-z0-9_-]"));
    return name.replace(unsafe, QStringLiteral("_"));
}
