#include "model/CacheFile.h"

#include "model/JsonReader.h"
#include "model/JsonWriter.h"
#include "model/OwnerOnlyFile.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// File times tick in steps of some milliseconds. A file that is older than this when its places
/// are remembered gets another time from any later write.
constexpr qint64 fileTimeStepMs = 1000;

struct KnownFile
{
    qint64 size = 0;
    QDateTime time;
    QList<JsonMemberPlace> places;
};

QHash<QString, KnownFile> &knownFiles()
{
    static QHash<QString, KnownFile> files;
    return files;
}

std::optional<QList<JsonMemberPlace>> knownPlaces(const QString &path)
{
    const auto known = knownFiles().constFind(path);
    if (known == knownFiles().constEnd()) {
        return std::nullopt;
    }
    const QFileInfo now(path);
    if (now.size() != known->size || now.lastModified() != known->time) {
        return std::nullopt;
    }
    return known->places;
}

void remember(const QString &path, const QList<JsonMemberPlace> &places)
{
    const QFileInfo file(path);
    const QDateTime time = file.lastModified();
    if (!places.isEmpty() && time.msecsTo(QDateTime::currentDateTime()) >= fileTimeStepMs) {
        knownFiles().insert(path, {file.size(), time, places});
    } else {
        knownFiles().remove(path);
    }
}

/// Closes a file that was written and remembers its places, unless it could not be written to its
/// end. Its time is set back, so that a later write by another process is seen even within the same
/// step of the clock.
void closeAndRemember(QFile &file, const QList<JsonMemberPlace> &places)
{
    if (!file.flush()) {
        return;
    }
    file.setFileTime(QDateTime::currentDateTime().addMSecs(-fileTimeStepMs),
                     QFileDevice::FileModificationTime);
    file.close();
    remember(file.fileName(), places);
}

qint64 endOf(const JsonMemberPlace &place)
{
    return place.start + place.length;
}

/// The text between the values of two members.
QByteArray separator(const QString &key)
{
    JsonText json(key.size());
    json.append(',');
    appendJson(json, key);
    json.append(':');
    return json.take();
}

} // namespace

CacheFile::CacheFile(QString filePath)
    : path(std::move(filePath))
{}

void CacheFile::readOnce()
{
    if (std::exchange(wasRead, true)) {
        return;
    }
    if (const auto known = knownPlaces(path)) {
        places = *known;
        return;
    }
    text = readText();
    if (const auto found = findJsonMembers(text)) {
        places = *found;
        remember(path, places);
    } else {
        members = readJsonMembers(text);
    }
}

QByteArray CacheFile::readText()
{
    textTime = QFileInfo(path).lastModified();
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void CacheFile::keepPlaces(const QList<JsonMemberPlace> &memberPlaces)
{
    if (QFileInfo(path).lastModified() == textTime) {
        remember(path, memberPlaces);
    }
}

const JsonMemberPlace *CacheFile::placeOf(const QString &key) const
{
    const auto found =
        std::find_if(places.begin(), places.end(),
                     [&key](const JsonMemberPlace &place) { return place.key == key; });
    return found != places.end() ? &*found : nullptr;
}

bool CacheFile::contains(const QString &key)
{
    readOnce();
    return placeOf(key) != nullptr || members.contains(key);
}

QByteArray CacheFile::value(const QString &key)
{
    readOnce();
    const JsonMemberPlace *place = placeOf(key);
    if (place == nullptr) {
        return members.value(key);
    }
    if (!text.isEmpty()) {
        return text.mid(place->start, place->length);
    }
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.seek(place->start) ? file.read(place->length)
                                                                     : QByteArray();
}

void CacheFile::replace(const QString &key, const QByteArray &json)
{
    readOnce();
    if (places.isEmpty()) {
        rewrite(key, json);
    } else {
        replaceInPlace(key, json);
    }
    wasRead = false;
    places.clear();
    text.clear();
    members = {};
}

void CacheFile::rewrite(const QString &key, const QByteArray &json)
{
    members.insert(key, json);
    QFile file(path);
    if (openOwnerOnly(file, QIODevice::WriteOnly | QIODevice::Truncate)) {
        file.write(writeJsonMembers(members));
    }
}

void CacheFile::replaceInPlace(const QString &key, const QByteArray &json)
{
    QFile file(path);
    if (!openOwnerOnly(file, QIODevice::ReadWrite)) {
        return;
    }
    const JsonMemberPlace *old = placeOf(key);
    const qint64 start = old != nullptr ? old->start : endOf(places.last());
    file.seek(old != nullptr ? endOf(*old) : start);
    const QByteArray head = old != nullptr ? QByteArray() : separator(key);
    const QByteArray tail = old != nullptr ? file.readAll() : "}"_ba;
    // A write that is cut short must not leave a text that reads as JSON.
    if (file.resize(start) && file.seek(start) && file.write(head) == head.size() &&
        file.write(json) == json.size() && file.write(tail) == tail.size()) {
        closeAndRemember(file, placesWith({key, start + head.size(), json.size()}));
    }
}

/// The places after a member was written there.
QList<JsonMemberPlace> CacheFile::placesWith(const JsonMemberPlace &written) const
{
    const JsonMemberPlace *old = placeOf(written.key);
    if (old == nullptr) {
        return places + QList{written};
    }
    QList<JsonMemberPlace> moved = places;
    for (JsonMemberPlace &place : moved) {
        if (place.start > old->start) {
            place.start += written.length - old->length;
        } else if (place.start == old->start) {
            place = written;
        }
    }
    return moved;
}
