#pragma once

#include <QString>

/// What remains of a channel's name when everything is left out that differs between a source and a
/// guide: case, blanks and signs, accents, what stands in brackets, marks of quality ("HD", "4K",
/// raised letters) and of the country.
struct LooseName
{
    QString text;    ///< empty when nothing remains
    QString country; ///< two lower-case letters; empty when the name has no mark of a country
};

LooseName looseName(const QString &name);

/// The country of a mark of two letters; empty for any other text.
QString countryOf(const QString &mark);
