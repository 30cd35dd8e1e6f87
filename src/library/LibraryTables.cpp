#include "library/LibraryTables.h"

#include <algorithm>
#include <array>

namespace {

using namespace Qt::StringLiterals;

/// In the order of EntryKind.
constexpr std::array kindNames{"live"_L1, "movie"_L1, "show"_L1, "channel"_L1, "episode"_L1};

} // namespace

QLatin1StringView LibraryTables::kindName(EntryKind kind)
{
    return kindNames.at(static_cast<std::size_t>(kind));
}

std::optional<EntryKind> LibraryTables::kindOf(QStringView name)
{
    const auto found = std::find(kindNames.begin(), kindNames.end(), name);
    if (found == kindNames.end()) {
        return std::nullopt;
    }
    return static_cast<EntryKind>(found - kindNames.begin());
}
