#include "player/StreamUrl.h"

#include <QByteArrayView>

namespace {

constexpr QByteArrayView invalidInUrls = " \"<>\\^`{|}";

bool mustBeEncoded(char byte)
{
    const auto code = static_cast<unsigned char>(byte);
    return code < 0x20U || code == 0x7fU || invalidInUrls.contains(byte);
}

} // namespace

QByteArray requestableUrl(const QString &url)
{
    const QByteArray utf8 = url.toUtf8();
    QByteArray result;
    result.reserve(utf8.size());
    for (const char byte : utf8) {
        if (mustBeEncoded(byte)) {
            result += '%' + QByteArray(1, byte).toHex().toUpper();
        } else {
            result += byte;
        }
    }
    return result;
}
