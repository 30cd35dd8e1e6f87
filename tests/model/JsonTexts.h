#pragma once

#include <QByteArray>
#include <QList>
#include <QRandomGenerator>

/// JSON texts, valid and malformed, that two readers may read differently.
namespace JsonTexts {

/// Texts of single values, many of which are malformed.
QList<QByteArray> values();

/// Whole texts: starts and ends, separators, nesting.
QList<QByteArray> documents();

/// The text with one or two random changes: pieces inserted or taken out, bytes replaced, the end
/// cut off.
QByteArray mutated(QByteArray text, QRandomGenerator &random);

/// A text as a test's message can show it.
QByteArray printable(const QByteArray &text);

} // namespace JsonTexts
