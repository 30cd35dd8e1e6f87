#include "library/LibraryBackup.h"

#include "app/TraceSecrets.h"
#include "library/LibraryTables.h"

#include <QDateTime>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr auto formatName = "vantiro-backup"_L1;
constexpr int formatVersion = 1;
/// A larger file is no backup: it would hold millions of rows.
constexpr qint64 largestFile = 256LL * 1024 * 1024;

/// In the order of SourceType.
constexpr std::array sourceTypeNames{"playlist"_L1, "account"_L1, "subscription"_L1};

struct SourceMember
{
    QLatin1StringView name;
    QString SourceConfig::*field;
    bool isCredential = false;
    bool isOptional = false; ///< not written while it is empty
};
constexpr std::array sourceMembers{
    SourceMember{"name"_L1, &SourceConfig::name},
    SourceMember{"url"_L1, &SourceConfig::url},
    SourceMember{"username"_L1, &SourceConfig::username},
    SourceMember{"liveExtension"_L1, &SourceConfig::liveExtension},
    SourceMember{"userAgent"_L1, &SourceConfig::userAgent, false, true},
    SourceMember{"password"_L1, &SourceConfig::password, true},
    SourceMember{"subscriptionKey"_L1, &SourceConfig::subscriptionKey, true},
};

/// A disk that fills up cuts a write short, which is no error to Qt; what remains then fails with
/// one.
bool writeWhole(QIODevice &file, const QByteArray &bytes)
{
    qint64 written = 0;
    for (qint64 count = 1; count > 0 && written < bytes.size(); written += count) {
        count = file.write(bytes.constData() + written, bytes.size() - written);
    }
    return written == bytes.size();
}

QJsonObject writeSource(SourceConfig source, bool withCredentials)
{
    if (!withCredentials) {
        source.url = LibraryBackup::withoutCredentials(source.url);
    }
    const auto type = static_cast<std::size_t>(source.type);
    QJsonObject object{{u"type"_s, sourceTypeNames[type < sourceTypeNames.size() ? type : 0]}};
    for (const SourceMember &member : sourceMembers) {
        const bool isOmitted = (member.isCredential && !withCredentials) ||
                               (member.isOptional && (source.*member.field).isEmpty());
        if (!isOmitted) {
            object.insert(member.name, source.*member.field);
        }
    }
    return object;
}

bool readSource(const QJsonObject &object, SourceConfig &source)
{
    const QString typeName = object.value("type"_L1).toString();
    const auto type = std::find(sourceTypeNames.begin(), sourceTypeNames.end(), typeName);
    if (type == sourceTypeNames.end()) {
        return false;
    }
    source.type = static_cast<qint32>(type - sourceTypeNames.begin());
    for (const SourceMember &member : sourceMembers) {
        const QJsonValue value = object.value(member.name);
        if (!value.isString() && !value.isUndefined()) {
            return false;
        }
        source.*member.field = value.toString();
    }
    return !source.name.isEmpty();
}

/// @name Leaving credentials out of a row
/// @{
template <typename Row>
void leaveOutCredentials(Row &row)
{
    if (row.kind == EntryKind::Channel) {
        setEntryId(row, LibraryBackup::withoutCredentials(entryIdOf(row)));
    }
}
void leaveOutCredentials(GuideSettings &row)
{
    row.addresses = LibraryBackup::guideAddressesWithoutCredentials(row.addresses);
}
/// @}

template <typename Table>
QJsonArray writeRows(const Table &table, const LibraryRows &rows, bool withCredentials)
{
    QJsonArray array;
    for (auto row : rows.*table.rows) {
        if (!withCredentials) {
            leaveOutCredentials(row);
        }
        QJsonObject object;
        LibraryTables::forEachColumn(table, [&](const auto &column) {
            object.insert(column.name,
                          QJsonValue::fromVariant(LibraryTables::toVariant(row.*column.field)));
        });
        array.append(object);
    }
    return array;
}

/// Sets a field from a member's value; false when it is of another type.
template <typename Value>
bool readValue(const QJsonValue &json, Value &field)
{
    if constexpr (std::is_same_v<Value, bool>) {
        field = json.toBool();
        return json.isBool();
    } else if constexpr (std::is_integral_v<Value>) {
        constexpr double largest = 9e15; // what a number in JSON holds exactly
        const double number = json.toDouble();
        field = static_cast<Value>(json.toInteger());
        return json.isDouble() && qAbs(number) < largest && static_cast<double>(field) == number;
    } else {
        return json.isString() && LibraryTables::fromVariant(json.toString(), field);
    }
}

/// Reads the rows of a part; false when one is damaged. A part that is missing has no rows.
template <typename Table>
bool readRows(const Table &table, const QJsonObject &root, LibraryRows &rows)
{
    const QJsonValue list = root.value(table.name);
    if (!list.isArray() && !list.isUndefined()) {
        return false;
    }
    const QJsonArray array = list.toArray();
    for (const QJsonValueConstRef element : array) {
        typename Table::Row row;
        const QJsonObject object = element.toObject();
        bool valid = element.isObject();
        int position = 0;
        LibraryTables::forEachColumn(table, [&](const auto &column) {
            const bool isKey = position++ < LibraryTables::keyColumns;
            const QJsonValue value = object.value(column.name);
            const bool isOmitted = value.isUndefined() && !isKey;
            valid = valid && (isOmitted || readValue(value, row.*column.field));
        });
        if (!valid) {
            return false;
        }
        (rows.*table.rows).append(row);
    }
    return true;
}

/// The name of the first part that is damaged; empty when none is.
QString readParts(const QJsonObject &root, LibraryBackup::Content &content)
{
    const QJsonValue sources = root.value("sources"_L1);
    const QJsonArray array = sources.toArray();
    bool valid = sources.isArray() || sources.isUndefined();
    for (const QJsonValueConstRef element : array) {
        SourceConfig source = defaultSourceConfig();
        valid = valid && readSource(element.toObject(), source);
        content.sources.append(source);
    }
    QString damaged = valid ? QString() : u"sources"_s;
    LibraryTables::forEach([&](const auto &table) {
        if (damaged.isEmpty() && !readRows(table, root, content.rows)) {
            damaged = table.name;
        }
    });
    return damaged;
}

} // namespace

QString LibraryBackup::withoutCredentials(const QString &url)
{
    return traceSafeUrl(url);
}

QString LibraryBackup::guideAddressesWithoutCredentials(const QString &addresses)
{
    QStringList lines = addresses.split(u'\n');
    for (QString &line : lines) {
        line = withoutCredentials(line);
    }
    return lines.join(u'\n');
}

bool LibraryBackup::lacksCredentials(const SourceConfig &source)
{
    switch (source.type) {
    case SourceType::Xtream:
        return source.password.isEmpty();
    case SourceType::Zevrino:
        return source.subscriptionKey.isEmpty();
    default:
        return source.url.contains("***"_L1);
    }
}

QByteArray LibraryBackup::write(const Content &content, bool withCredentials)
{
    QJsonArray sources;
    for (const SourceConfig &source : content.sources) {
        sources.append(writeSource(source, withCredentials));
    }
    QJsonObject root{
        {u"format"_s, formatName},
        {u"version"_s, formatVersion},
        {u"createdAt"_s, QDateTime::currentSecsSinceEpoch()},
        {u"hasCredentials"_s, withCredentials && content.hasCredentials},
        {u"sources"_s, sources},
    };
    LibraryTables::forEach([&](const auto &table) {
        root.insert(table.name, writeRows(table, content.rows, withCredentials));
    });
    return QJsonDocument(root).toJson();
}

std::optional<LibraryBackup::Content> LibraryBackup::read(const QByteArray &json, QString &error)
{
    const QJsonObject root = QJsonDocument::fromJson(json).object();
    if (root.value("format"_L1).toString() != formatName) {
        error = tr("This file is not a backup of Vantiro Player, or it is damaged.");
        return std::nullopt;
    }
    const int version = root.value("version"_L1).toInt();
    if (version > formatVersion) {
        error = tr("This backup was made by a newer version of Vantiro Player.");
        return std::nullopt;
    }
    Content content;
    content.hasCredentials = root.value("hasCredentials"_L1).toBool();
    const QString damaged = version < 1 ? u"version"_s : readParts(root, content);
    if (!damaged.isEmpty()) {
        error = tr("This backup is damaged: its part \"%1\" cannot be read.").arg(damaged);
        return std::nullopt;
    }
    return content;
}

bool LibraryBackup::save(const QString &path, const Content &content, bool withCredentials,
                         QString &error)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        if (writeWhole(file, write(content, withCredentials)) && file.commit()) {
            return true;
        }
    }
    error = tr("The backup cannot be written: %1").arg(file.errorString());
    return false;
}

std::optional<LibraryBackup::Content> LibraryBackup::load(const QString &path, QString &error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = tr("The backup cannot be read: %1").arg(file.errorString());
        return std::nullopt;
    }
    return read(file.size() > largestFile ? QByteArray() : file.readAll(), error);
}
