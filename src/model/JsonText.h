#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <algorithm>
#include <cstring>
#include <utility>

/// A JSON text that is being written. Appending a few bytes to a QByteArray costs several times as
/// much, which shows with millions of fields.
class JsonText final
{
public:
    /// Reserves that many bytes.
    explicit JsonText(qsizetype expectedSize) { text.resize(expectedSize); }

    void append(QByteArrayView bytes)
    {
        if (bytes.size() > text.size() - used) {
            text.resize(std::max(2 * text.size(), used + bytes.size()));
        }
        // Empty views may have no data.
        if (!bytes.isEmpty()) {
            std::memcpy(text.data() + used, bytes.data(), size_t(bytes.size()));
        }
        used += bytes.size();
    }
    void append(char byte) { append(QByteArrayView(&byte, 1)); }

    /// The text that was appended; this object must not be used any more.
    QByteArray take()
    {
        text.truncate(used);
        return std::move(text);
    }

private:
    QByteArray text;
    qsizetype used = 0;
};
