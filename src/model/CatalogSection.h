#pragma once

/// The four sections of a catalog. Each one fills a tab of its own.
enum class CatalogSection
{
    Live,
    Movie,
    Series,
    Channel
};
