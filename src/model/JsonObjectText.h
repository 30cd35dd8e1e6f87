#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// A JSON object as the texts of its members, which can be kept and replaced without being read.
class JsonObjectText final
{
public:
    JsonObjectText() = default;

    /// An object without members when the text is not JSON or its root is no object.
    static JsonObjectText read(const QByteArray &json);

    bool contains(const QString &key) const { return find(key) >= 0; }
    /// The JSON text of a member's value, empty when there is no such member.
    QByteArray value(const QString &key) const;
    /// Adds a member or replaces its value; `json` must be a JSON text.
    void insert(const QString &key, const QByteArray &json);
    QByteArray toJson() const;

private:
    struct Member
    {
        QString key;
        QByteArray json;
    };

    qsizetype find(const QString &key) const;

    QList<Member> members;
};
