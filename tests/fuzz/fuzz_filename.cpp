// Names that become names of files: of sources, for the cache and the stored playlists; of
// suffixes; and of posters. All stay in their folder.

#include "FuzzTarget.h"

#include "model/SafeFileName.h"
#include "support/PrivateProfile.h"
#include "support/TestFiles.h"
#include "ui/PlaylistCopy.h"
#include "ui/PosterImage.h"

#include <algorithm>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

const QByteArray playlist = "#EXTM3U\n"_ba;

bool isSafe(QChar unit)
{
    return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z') ||
           (unit >= u'0' && unit <= u'9') || unit == u'_' || unit == u'-';
}

/// A stored copy is a file of its own, directly in its folder; or there is none, and a reason.
void checkCopy(const QString &name, const QString &suffix)
{
    const QString chosen = PrivateProfile::current().root() + "/chosen."_L1 + suffix;
    QFile file(chosen);
    if (suffix.contains(u'/') || suffix.contains(QChar(0)) || !file.open(QIODevice::WriteOnly)) {
        return; // no user has such a file
    }
    file.write(playlist);
    file.close();
    SourceConfig source = defaultSourceConfig();
    source.name = name;
    source.url = chosen;
    QString error;
    if (storePlaylistCopy(source, &error)) {
        const QFileInfo copy(source.url);
        require(copy.path() == PrivateProfile::current().appDataDir() + "/playlists"_L1,
                "a copy is in its folder");
        require(readFile(source.url) == playlist, "a copy has the content");
        QFile::remove(source.url);
    } else {
        require(!error.isEmpty() && source.url == chosen, "a failed copy changes nothing");
    }
    QFile::remove(chosen);
}

/// UTF-8, or any code units, which make no valid text.
QString nameFrom(FuzzInput &input)
{
    const bool isUtf8 = input.below(2) == 0;
    const QByteArray bytes = input.takeUntil('\n');
    if (isUtf8) {
        return QString::fromUtf8(bytes);
    }
    QString name(bytes.size() / 2, QChar());
    std::memcpy(name.data(), bytes.constData(), static_cast<size_t>(name.size()) * 2);
    return name;
}

} // namespace

void fuzz(FuzzInput &input)
{
    const QString name = nameFrom(input);
    const QString safe = safeFileName(name);
    require(std::all_of(safe.begin(), safe.end(), isSafe), "a safe name has safe characters");
    require(safe.size() == name.toUcs4().size(), "each unsafe character becomes one underscore");
    require(safeFileName(safe) == safe, "a safe name is kept");

    const QFileInfo poster(posterCachePath(name));
    require(poster.path() == PrivateProfile::current().appDataDir() + "/thumb_cache"_L1,
            "a poster is in its folder");
    require(poster.completeBaseName().size() == 64 && poster.suffix() == "img"_L1,
            "a poster's name is a hash");
    checkCopy(name, QString::fromUtf8(input.rest()));
}
