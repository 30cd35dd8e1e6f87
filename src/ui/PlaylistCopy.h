#pragma once

#include "model/SourceConfig.h"

#include <QString>

/// Copies the local file of a playlist source into the application's playlist folder, readable by
/// its owner only, in place of an earlier copy of that name, and makes the copy's path the source's
/// `url`. Any other source, a file that already is the stored copy, and an address that names no
/// file are left as they are.
///
/// False when the file cannot be copied: `error` then has a sentence for the user, and the source
/// and an earlier copy are as they were.
bool storePlaylistCopy(SourceConfig &config, QString *error);

/// Whether a source is a playlist from a local file that is not there.
bool lacksPlaylistFile(const SourceConfig &source);
