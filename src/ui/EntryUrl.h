#pragma once

#include "model/CatalogRecords.h"
#include "model/SourceConfig.h"
#include "model/StreamHeaders.h"
#include "providers/XtreamAccount.h"

#include <QString>

#include <optional>

/// What the stream of an entry is asked of.
struct EntryOrigin
{
    SourceConfig source;
    /// Of an account's entry; none before the account was loaded.
    std::optional<XtreamAccount> account;
    /// It was opened by its address, and belongs to no source.
    bool isOpened = false;
};

/// The URL that plays `item`, an entry of that origin: the own URL of what was opened or belongs
/// to a playlist, or one that is built for the account. Empty for what does not play: a show, an
/// entry without a URL, an entry without an account.
QString entryUrl(const MediaItem &item, const EntryOrigin &origin);

/// The headers that play it: those that the playlist names for the entry, otherwise the user agent
/// of the source, for an episode that of the account. What stands behind a '|' in the URL comes
/// before them.
StreamHeaders entryHeaders(const MediaItem &item, const EntryOrigin &origin);
