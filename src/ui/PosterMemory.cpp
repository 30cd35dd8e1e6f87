#include "ui/PosterMemory.h"

QIcon PosterMemory::find(const QString &url)
{
    const auto found = positions.constFind(url);
    if (found == positions.constEnd()) {
        return {};
    }
    const auto entry = found.value();
    entry->lastUse = insertions;
    entries.splice(entries.begin(), entries, entry);
    return entry->icon;
}

void PosterMemory::insert(const QString &url, const QIcon &icon, qint64 bytes)
{
    ++insertions;
    entries.push_front({url, icon, bytes, insertions});
    positions.insert(url, entries.begin());
    used += bytes;
}

QStringList PosterMemory::trim()
{
    QStringList removed;
    while (used > budget && entries.back().lastUse != insertions) {
        const Entry &oldest = entries.back();
        removed << oldest.url;
        positions.remove(oldest.url);
        used -= oldest.bytes;
        entries.pop_back();
    }
    return removed;
}
