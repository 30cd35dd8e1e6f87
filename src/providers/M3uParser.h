#pragma once

#include "model/CatalogRecords.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// Turns the text of an extended M3U playlist into channels and their groups. Stateless.
class M3uParser final
{
public:
    struct Result
    {
        /// One live entry per accepted URL line, in playlist order.
        QList<MediaItem> items;
        /// One category per group, in order of first appearance; id and name are the group's name.
        QList<Category> categories;
    };

    M3uParser() = delete;

    /// Never fails: malformed lines are skipped. Accepts all kinds of line ends, also mixed.
    static Result parse(const QString &text);
    /// The same for the bytes of a playlist in UTF-8, with or without a byte-order mark. What is
    /// not UTF-8 is decoded as QString::fromUtf8() does.
    static Result parseUtf8(const QByteArray &text);
};
