#include "model/JsonMembers.h"

QByteArray JsonMembers::value(const QString &key) const
{
    const qsizetype index = find(key);
    return index < 0 ? QByteArray() : members.at(index).json;
}

void JsonMembers::insert(const QString &key, const QByteArray &json)
{
    const qsizetype index = find(key);
    if (index < 0) {
        members.append({key, json});
    } else {
        members[index].json = json;
    }
}

qsizetype JsonMembers::find(const QString &key) const
{
    for (qsizetype index = 0; index < members.size(); ++index) {
        if (members.at(index).key == key) {
            return index;
        }
    }
    return -1;
}
