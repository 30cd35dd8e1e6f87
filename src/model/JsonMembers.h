#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// Where the value of a root object's member stands in a JSON text, in bytes.
struct JsonMemberPlace
{
    QString key;
    qsizetype start = 0;
    qsizetype length = 0;
};

/// The members of one JSON object, each value as a JSON text of its own: it can be kept and
/// replaced without being parsed. Read by readJsonMembers(), written by writeJsonMembers().
class JsonMembers final
{
public:
    struct Member
    {
        QString key;
        QByteArray json;
    };

    bool isEmpty() const { return members.isEmpty(); }
    bool contains(const QString &key) const { return find(key) >= 0; }
    /// The JSON text of a member's value, empty when there is no such member.
    QByteArray value(const QString &key) const;
    /// Replaces the value of a member in place, or adds a member at the end; `json` must be valid
    /// JSON.
    void insert(const QString &key, const QByteArray &json);

    /// Adds a member without looking for one of the same key.
    void append(const QString &key, const QByteArray &json) { members.append({key, json}); }

    QList<Member>::const_iterator begin() const { return members.constBegin(); }
    QList<Member>::const_iterator end() const { return members.constEnd(); }

private:
    qsizetype find(const QString &key) const;

    QList<Member> members;
};
