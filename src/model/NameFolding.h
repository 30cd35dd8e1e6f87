#pragma once

#include "model/CatalogText.h"

#include <QStringView>

#include <string>

/// Which characters a name consists of, as far as comparing it is concerned.
enum class Alphabet
{
    Ascii,
    Plain, ///< of the Basic Multilingual Plane
    WithSurrogates
};

/// Appends the name as UTF-8 with simple case folding, as Qt compares names. Two names without
/// surrogates compare as the bytes appended for them do. A name with surrogates appends nothing:
/// the caller lets Qt compare.
Alphabet appendFolded(const CatalogText &name, std::string &out);
