#pragma once

#include <QStringView>

#include <string>

/// Which characters a name consists of, as far as comparing it is concerned.
enum class Alphabet
{
    Ascii,
    Plain, ///< of the Basic Multilingual Plane
    WithSurrogates
};

/// Appends the name with simple case folding, as Qt compares names. It stops at the first surrogate
/// and returns WithSurrogates: then the caller discards what was appended and lets Qt compare.
Alphabet appendFolded(QStringView name, std::u16string &out);
