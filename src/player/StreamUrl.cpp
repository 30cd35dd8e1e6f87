#include "player/StreamUrl.h"

#include <QByteArrayView>

namespace {

constexpr QByteArrayView invalidInUrls = " \"<>\\^`{|}";

bool mustBeEncoded(char byte)
{
    const auto code = static_cast<unsigned char>(byte);
    return code < 0x20U || code == 0x7fU || invalidInUrls.contains(byte);
}

/// libVLC reads "access/demux://", and one of its demuxers writes the stream to a file.
QByteArray withoutDemuxer(QByteArray url)
{
    const qsizetype schemeEnd = url.indexOf("://");
    const qsizetype slash = url.indexOf('/');
    return slash < schemeEnd ? url.remove(slash, schemeEnd - slash) : url;
}

} // namespace

QByteArray requestableUrl(const QString &url)
{
    const QByteArray utf8 = withoutDemuxer(url.toUtf8());
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
