// Prints every character of one or two bytes of the given encodings: encoding, bytes, code point,
// and the bytes into which that code point is converted back (all hexadecimal; "-" where that
// fails).

#include <iconv.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

/// The code point of these bytes, if they are exactly one character; -1 otherwise.
static int64_t decode(iconv_t state, const unsigned char *bytes, size_t size)
{
    unsigned char code[8];
    char *in = (char *)bytes;
    char *out = (char *)code;
    size_t outLeft = sizeof code;
    if (iconv(state, &in, &size, &out, &outLeft) != 0 || outLeft != 4)
        return -1;
    return (int64_t)code[0] << 24 | code[1] << 16 | code[2] << 8 | code[3];
}

static void printCharacter(iconv_t back, const char *name, const unsigned char *bytes, size_t size,
                           uint32_t codePoint)
{
    unsigned char code[4] = {(unsigned char)(codePoint >> 24), (unsigned char)(codePoint >> 16),
                             (unsigned char)(codePoint >> 8), (unsigned char)codePoint};
    unsigned char encoded[8];
    char *in = (char *)code;
    char *out = (char *)encoded;
    size_t inLeft = sizeof code;
    size_t outLeft = sizeof encoded;
    printf("%s ", name);
    for (size_t i = 0; i < size; ++i)
        printf("%02X", bytes[i]);
    printf(" %X ", (unsigned)codePoint);
    if (iconv(back, &in, &inLeft, &out, &outLeft) != 0)
        printf("-");
    for (size_t i = 0; i < sizeof encoded - outLeft; ++i)
        printf("%02X", encoded[i]);
    printf("\n");
}

static void printEncoding(const char *name)
{
    const iconv_t state = iconv_open("UTF-32BE", name);
    const iconv_t back = iconv_open(name, "UTF-32BE");
    if (state == (iconv_t)-1 || back == (iconv_t)-1) {
        printf("%s unknown\n", name);
        return;
    }
    for (unsigned first = 0; first < 0x100; ++first) {
        unsigned char bytes[2] = {(unsigned char)first, 0};
        const int64_t single = decode(state, bytes, 1);
        if (single >= 0) {
            printCharacter(back, name, bytes, 1, (uint32_t)single);
            continue;
        }
        for (unsigned second = 0; second < 0x100; ++second) {
            bytes[1] = (unsigned char)second;
            const int64_t pair = decode(state, bytes, 2);
            if (pair >= 0)
                printCharacter(back, name, bytes, 2, (uint32_t)pair);
        }
    }
    iconv_close(state);
    iconv_close(back);
}

int main(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i)
        printEncoding(argv[i]);
    return 0;
}
