#pragma once

#include <QJsonValue>
#include <QString>
#include <QtGlobal>

#include <optional>

/// @file
/// The values of a provider's small replies, however they are written: numbers as texts, flags as
/// numbers, null anywhere.

/// The integer of a number, a flag, or a text with a number.
std::optional<qint64> integerOf(const QJsonValue &value);

/// The text of a text or a number, without white space around it.
QString textOf(const QJsonValue &value);

/// The flag of a flag, of a number, or of a text with a number or a word like "yes".
std::optional<bool> flagOf(const QJsonValue &value);
