// A fuzz target: converts any bytes between any two encodings, in one call and in small pieces, and
// compares both with glibc's iconv.

#include "codepages.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <iconv.h>

namespace {

/// Encodings that glibc and Windows define in the same way.
constexpr std::array encodings = {
    "UTF-8",  "UTF-16LE",    "UTF-16BE",   "UTF-32LE", "UTF-32BE", "ASCII",  "ISO-8859-1",
    "CP1252", "ISO-8859-15", "ISO-8859-5", "CP1251",   "CP437",    "CP866",  "KOI8-R",
    "CP932",  "CP936",       "CP949",      "CP950",    "CP1253",   "CP1256",
};
/// No encoding needs more output bytes per input byte.
constexpr int growth = 4;

struct Result
{
    std::vector<char> output;
    int consumed = 0;
    bool complete = false;

    bool operator==(const Result &) const = default;
};

/// Converts with an output buffer of `piece` bytes at a time, which is continued when it is full.
Result convert(const char *from, const char *to, std::vector<char> input, std::size_t piece)
{
    Result result;
    iconv_t state = iconv_open(to, from);
    if (state == reinterpret_cast<iconv_t>(-1)) { // NOLINT: prescribed by the interface
        std::abort();
    }
    char *in = input.data();
    std::size_t left = input.size();
    while (true) {
        // On the heap with its exact size, so that the sanitizer sees every excess byte.
        std::vector<char> buffer(piece);
        char *out = buffer.data();
        std::size_t room = piece;
        const std::size_t status = iconv(state, &in, &left, &out, &room);
        result.output.insert(result.output.end(), buffer.data(), out);
        result.complete = status == 0;
        if (status == 0 || errno != E2BIG) {
            break;
        }
    }
    iconv_close(state);
    result.consumed = static_cast<int>(input.size() - left);
    return result;
}

Result convertWithReference(const char *from, const char *to, std::vector<char> input)
{
    Result result;
    result.output.resize(input.size() * growth);
    const int capacity = static_cast<int>(result.output.size());
    const auto attempt = [&] {
        return convertWithGlibc(from, to, input.data(), static_cast<int>(input.size()),
                                result.output.data(), capacity, &result.consumed);
    };
    int size = attempt();
    result.complete = size >= 0;
    if (!result.complete) {
        // What comes before the fault.
        input.resize(static_cast<std::size_t>(result.consumed));
        size = attempt();
    }
    result.output.resize(static_cast<std::size_t>(size));
    return result;
}

/// glibc passes on what is UTF-8 only in form: code points beyond U+10FFFF.
bool isBeyondReference(const char *from, const std::vector<char> &input)
{
    constexpr unsigned char highestLead = 0xf4;
    return std::strcmp(from, "UTF-8") == 0 &&
           std::any_of(input.begin(), input.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) >= highestLead; });
}

[[noreturn]] void fail(const char *what, const char *from, const char *to)
{
    std::fprintf(stderr, "%s: %s to %s\n", what, from, to);
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    constexpr std::size_t header = 3;
    if (size < header) {
        return 0;
    }
    const char *from = encodings[data[0] % encodings.size()];
    const char *to = encodings[data[1] % encodings.size()];
    const std::size_t piece = growth + data[2] % 13;
    const std::vector<char> input(data + header, data + size);

    const Result whole = convert(from, to, input, growth * input.size() + growth);
    if (whole != convert(from, to, input, piece)) {
        fail("The pieces differ from the whole", from, to);
    }
    if (!isBeyondReference(from, input) && whole != convertWithReference(from, to, input)) {
        fail("The result differs from glibc's", from, to);
    }
    // Any text is a valid pair of names.
    const std::string name(input.begin(), input.end());
    iconv_t state = iconv_open(name.c_str(), from);
    if (state != reinterpret_cast<iconv_t>(-1)) { // NOLINT: prescribed by the interface
        iconv_close(state);
    }
    return 0;
}
