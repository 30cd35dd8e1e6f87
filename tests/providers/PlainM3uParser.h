#pragma once

#include "providers/M3uParser.h"

/// The playlist rules put down one by one, with regular expressions and without a thought for
/// speed: what M3uParser is compared with.
///
/// Regular expressions reject text that is no valid UTF-16, so give it none with lone surrogates.
class PlainM3uParser final
{
public:
    PlainM3uParser() = delete;

    static M3uParser::Result parse(const QString &text);
};
