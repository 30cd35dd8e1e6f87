#pragma once

#include "providers/M3uParser.h"

/// The reference implementation of M3uParser: by regular expressions, regardless of speed. These
/// reject invalid UTF-16, so the text must not contain lone surrogates.
class ReferenceM3uParser final
{
public:
    ReferenceM3uParser() = delete;

    static M3uParser::Result parse(const QString &text);
};
