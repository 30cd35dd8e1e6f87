#pragma once

#include <QString>
#include <QStringList>

/// The language of the window's texts.
namespace Language {

/// The language that the program has texts for and that suits best, as a code such as "de", or ""
/// for English. `wanted` is the user's own choice, such as "de", "pt_BR", "en" or "C"; where the
/// program lacks it, English. If it is empty, the first of the system's languages that is English
/// or that the program has.
QString choose(const QString &wanted, const QStringList &systemLanguages);

/// Loads the texts of the language that VANTIRO_LANGUAGE names, otherwise of the system's. Sets the
/// direction of layouts. Dates and numbers keep the system's formats, unless VANTIRO_LANGUAGE names
/// another language than the system's; the digits are Latin. English changes nothing. To be called
/// once, when the application object is there and before any text shows.
void apply();

} // namespace Language
