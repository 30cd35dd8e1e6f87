#include "ui/SnapshotFile.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestName = 80;

} // namespace

QString snapshotFileName(const QString &entryName, const QDateTime &time)
{
    QString name;
    for (const QChar character : entryName.simplified().left(longestName)) {
        const bool isUnsafe = !character.isPrint() || u"\\/:*?\"<>|%$"_s.contains(character);
        name += isUnsafe ? u'_' : character;
    }
    while (name.startsWith(u'.')) {
        name.remove(0, 1);
    }
    if (name.isEmpty()) {
        name = u"Picture"_s;
    }
    return name + time.toString(u" yyyy-MM-dd hh-mm-ss"_s);
}

QString unusedPath(const QString &folder, const QString &fileName)
{
    const QDir directory(folder);
    QString path = directory.filePath(fileName + ".png"_L1);
    for (int number = 2; QFileInfo::exists(path); ++number) {
        path = directory.filePath(u"%1 (%2).png"_s.arg(fileName, QString::number(number)));
    }
    return path;
}
