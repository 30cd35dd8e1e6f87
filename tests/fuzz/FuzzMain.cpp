#include "FuzzTarget.h"
#include "support/PrivateProfile.h"

#include <QGuiApplication>

#include <cstdio>
#include <cstdlib>

void require(bool holds, const char *rule)
{
    if (!holds) {
        std::fprintf(stderr, "Broken rule: %s\n", rule);
        std::abort();
    }
}

FuzzInput::FuzzInput(const std::uint8_t *data, std::size_t size)
    : bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size))
{}

int FuzzInput::below(int count)
{
    const QByteArray byte = take(1);
    return byte.isEmpty() ? 0 : static_cast<unsigned char>(byte.front()) % count;
}

QByteArray FuzzInput::take(qsizetype size)
{
    QByteArray head = bytes.left(size);
    bytes.remove(0, head.size());
    return head;
}

QByteArray FuzzInput::takeUntil(char end)
{
    const qsizetype place = bytes.indexOf(end);
    QByteArray head = take(place < 0 ? bytes.size() : place);
    take(1);
    return head;
}

QByteArray FuzzInput::rest()
{
    return take(bytes.size());
}

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    // Read once, so before anything asks.
    qputenv("VANTIRO_NET_DEBUG", "1");
    static const PrivateProfile profile;
    // As in the program, a value of the settings may be a picture.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(*argc, *argv);
    // Picture formats complain about almost every input.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput input(data, size);
    fuzz(input);
    return 0;
}
