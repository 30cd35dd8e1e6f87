#include "model/ItemIds.h"

#include <QHash>

QList<int> rowsOfIds(const QList<MediaItem> &items, const QStringList &ids)
{
    QHash<CatalogText, qsizetype> wanted;
    for (const QString &id : ids) {
        wanted.insert(id, wanted.value(id, wanted.size()));
    }
    QList<int> rowByPlace(wanted.size(), -1);
    qsizetype missing = wanted.size();
    for (qsizetype row = 0; row < items.size() && missing > 0; ++row) {
        const auto place = wanted.constFind(items.at(row).id);
        if (place != wanted.constEnd() && rowByPlace.at(*place) < 0) {
            rowByPlace[*place] = static_cast<int>(row);
            --missing;
        }
    }
    rowByPlace.removeAll(-1);
    return rowByPlace;
}
