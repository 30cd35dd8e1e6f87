#pragma once

#include "model/JsonMembers.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

/// One file of the catalog cache: a JSON object whose members are read and replaced one by one.
///
/// Where the members stand is remembered for as long as the program runs, with the size and the
/// time of the file. A member is then read or replaced without a look at the others. A file that
/// was changed by someone else since is read and checked as a whole. One thread at a time.
class CacheFile final
{
public:
    /// Opens nothing yet. A file that is missing, damaged or no object has no members.
    explicit CacheFile(QString filePath);

    /// The text of the whole file; empty when it cannot be read.
    QByteArray readText();
    /// Remembers where the members stand in the text that readText() returned, unless the file has
    /// changed since.
    void keepPlaces(const QList<JsonMemberPlace> &memberPlaces);

    bool contains(const QString &key);
    /// The JSON text of a member's value; empty when there is no such member.
    QByteArray value(const QString &key);
    /// Replaces the value of a member, or adds a member at the end, in a file that only its owner
    /// may read. `json` must be valid JSON. A failed write is not reported.
    void replace(const QString &key, const QByteArray &json);

private:
    void readOnce();
    const JsonMemberPlace *placeOf(const QString &key) const;
    void rewrite(const QString &key, const QByteArray &json);
    void replaceInPlace(const QString &key, const QByteArray &json);
    QList<JsonMemberPlace> placesWith(const JsonMemberPlace &written) const;

    QString path;
    QDateTime textTime; ///< of the file, just before readText() read it
    bool wasRead = false;
    /// Where the members stand in the file; empty when `members` has them instead.
    QList<JsonMemberPlace> places;
    /// The whole file, when it was read.
    QByteArray text;
    /// The members of a file whose text is read by Qt only.
    JsonMembers members;
};
