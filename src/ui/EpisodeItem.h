#pragma once

#include "model/CatalogRecords.h"

/// The playable entry of an episode, named "Show - S01E02 - Title".
MediaItem mediaItemFromEpisode(const Episode &episode, const QString &seriesName);
