#include "providers/ReplyBytes.h"

#include <utility>

ReplyBytes::ReplyBytes(const QByteArray &bytes)
{
    pieces.append(bytes);
    total = bytes.size();
}

void ReplyBytes::append(QByteArrayView bytes)
{
    if (pieces.isEmpty() || pieces.constLast().size() >= pieceBytes) {
        pieces.append(bytes.toByteArray());
    } else {
        pieces.last() += bytes;
    }
    total += bytes.size();
}

QByteArray ReplyBytes::join()
{
    QList<QByteArray> parts = std::exchange(pieces, {});
    const qsizetype size = std::exchange(total, 0);
    if (parts.size() < 2) {
        return parts.value(0);
    }
    QByteArray whole;
    whole.reserve(size);
    for (QByteArray &part : parts) {
        whole += std::exchange(part, {}); // frees it at once
    }
    return whole;
}
