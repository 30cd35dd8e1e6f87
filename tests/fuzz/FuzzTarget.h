#pragma once

#include <QByteArray>

#include <cstdint>

/// @file
/// What the fuzz targets share. FuzzMain.cpp has libFuzzer's entry points: a private profile and an
/// application object without a window, made once per process.

/// Ends the process with a find unless the rule holds.
void require(bool holds, const char *rule);

/// One input, taken from its front. What is taken past the end is 0 or empty.
class FuzzInput final
{
public:
    FuzzInput(const std::uint8_t *data, std::size_t size);

    /// A number from 0 to `count` - 1.
    int below(int count);
    /// At most `size` bytes.
    QByteArray take(qsizetype size);
    /// What stands before the next byte of that value, which is dropped; all when there is none.
    QByteArray takeUntil(char end);
    QByteArray rest();

    bool isEmpty() const { return bytes.isEmpty(); }

private:
    QByteArray bytes;
};

/// What a target does with one input.
void fuzz(FuzzInput &input);
