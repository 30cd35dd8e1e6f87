#pragma once

#include <QHash>
#include <QIcon>
#include <QString>
#include <QStringList>

#include <list>

/// Posters by their URL, bounded by the bytes of their pictures. The least recently used leave
/// first.
class PosterMemory final
{
public:
    explicit PosterMemory(qint64 maxBytes)
        : budget(maxBytes)
    {}

    bool contains(const QString &url) const { return positions.contains(url); }
    /// The poster, which counts as used now; a null icon when it is not here.
    QIcon find(const QString &url);
    /// Adds a poster that is not here yet.
    void insert(const QString &url, const QIcon &icon, qint64 bytes);
    /// Removes posters until the rest fits, and returns their URLs. What was found since the last
    /// insert() stays, and so does the last one inserted.
    QStringList trim();

private:
    struct Entry
    {
        QString url;
        QIcon icon;
        qint64 bytes;
        quint64 lastUse; ///< the number of the insertion before
    };
    using Entries = std::list<Entry>;

    qint64 budget;
    qint64 used = 0;
    quint64 insertions = 0;
    Entries entries; ///< the most recently used first
    QHash<QString, Entries::iterator> positions;
};
