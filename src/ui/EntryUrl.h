#pragma once

#include "model/CatalogRecords.h"
#include "model/SourceConfig.h"
#include "providers/XtreamAccount.h"

#include <QString>

#include <optional>

class XtreamClient;

/// The URL that plays `item`, an entry of `source`: a playlist entry's own URL, or one that is
/// built for the account of `client`, which may be null. An episode is built for `showAccount` if
/// there is one. Empty for what does not play: a show, an entry without a URL, an entry without an
/// account.
QString entryUrl(const MediaItem &item, const SourceConfig &source, const XtreamClient *client,
                 const std::optional<XtreamAccount> &showAccount);
