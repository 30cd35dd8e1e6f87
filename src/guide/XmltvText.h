#pragma once

#include <QString>

/// @file
/// The texts of a guide's elements and attributes.

namespace XmltvText {

/// Replaces the five entities of XML and numbers of characters. Any other stays as it is, and
/// control characters are left out.
QString expanded(const QString &text);

QString withUnixLineEnds(QString text);

/// The text in at most so many UTF-16 units, with no half of a character at its end.
QString cut(const QString &text, qsizetype length);

} // namespace XmltvText
