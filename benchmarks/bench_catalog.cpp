// From bytes to records and back: playlists, account replies, the catalog cache.

#include "fakeprovider/CatalogGenerator.h"
#include "model/CatalogCache.h"
#include "providers/M3uParser.h"
#include "providers/XtreamCatalog.h"

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int categories = 200;

void playlistToItems(benchmark::State &state)
{
    const QByteArray bytes =
        CatalogGenerator().playlist(static_cast<int>(state.range(0)), categories, u"http://h/"_s);
    for (auto _ : state) {
        benchmark::DoNotOptimize(M3uParser::parseUtf8(bytes));
    }
}
BENCHMARK(playlistToItems)->Arg(100000)->Arg(600000)->Unit(benchmark::kMillisecond);

void filmReplyToRecords(benchmark::State &state)
{
    const QByteArray reply =
        CatalogGenerator().vodReply(static_cast<int>(state.range(0)), categories);
    for (auto _ : state) {
        benchmark::DoNotOptimize(parseVodStreams(reply));
    }
}
BENCHMARK(filmReplyToRecords)->Arg(100000)->Arg(150000)->Unit(benchmark::kMillisecond);

CatalogCache::Section section(int count)
{
    return {{{u"1"_s, u"One"_s}}, CatalogGenerator().movies(count, categories)};
}

void cacheSaveBesideTwoSections(benchmark::State &state)
{
    const CatalogCache::Section data = section(static_cast<int>(state.range(0)));
    CatalogCache::save(u"bench"_s, u"live"_s, data);
    CatalogCache::save(u"bench"_s, u"series"_s, data);
    for (auto _ : state) {
        CatalogCache::save(u"bench"_s, u"movie"_s, data);
    }
}
BENCHMARK(cacheSaveBesideTwoSections)->Arg(100000)->Unit(benchmark::kMillisecond);

void cacheLoad(benchmark::State &state)
{
    const CatalogCache::Section data = section(static_cast<int>(state.range(0)));
    CatalogCache::save(u"bench2"_s, u"live"_s, data);
    CatalogCache::save(u"bench2"_s, u"movie"_s, data);
    for (auto _ : state) {
        CatalogCache::Section out;
        benchmark::DoNotOptimize(CatalogCache::load(u"bench2"_s, u"movie"_s, out));
    }
}
BENCHMARK(cacheLoad)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace
