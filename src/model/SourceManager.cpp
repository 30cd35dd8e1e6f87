#include "model/SourceManager.h"

#include "model/OwnerOnlyFile.h"
#include "model/SourceMerge.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <algorithm>
#include <optional>
#include <tuple>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

const QString organization = u"Vantiro"_s;
const QString application = u"Player"_s;
const QString lastActiveKey = u"lastActiveSource"_s;
const QString sourcesKey = u"sources"_s;

/// The number of entries to read from the array that is open: the stored size, or, if that is
/// implausibly large, the highest index that exists. A damaged size must not exhaust the memory.
int plausibleSize(const QSettings &settings, int storedSize)
{
    constexpr int largestPlausible = 10000;
    if (storedSize <= largestPlausible) {
        return storedSize;
    }
    int highest = 0;
    const QStringList indexes = settings.childGroups();
    for (const QString &index : indexes) {
        highest = std::max(highest, std::min(index.toInt(), largestPlausible));
    }
    return highest;
}

/// Ties a key of the store to a field of a source.
template <typename Value>
struct Setting
{
    QLatin1StringView key;
    Value SourceConfig::*field;
};

constexpr std::tuple settingsTable{
    Setting<qint32>{"type"_L1, &SourceConfig::type},
    Setting<QString>{"name"_L1, &SourceConfig::name},
    Setting<QString>{"url"_L1, &SourceConfig::url},
    Setting<QString>{"username"_L1, &SourceConfig::username},
    Setting<QString>{"password"_L1, &SourceConfig::password},
    Setting<QString>{"liveExtension"_L1, &SourceConfig::liveExtension},
    Setting<QString>{"subscriptionKey"_L1, &SourceConfig::subscriptionKey},
    Setting<qint64>{"lastUpdated"_L1, &SourceConfig::lastUpdated},
};

/// Stored only where it is set: most sources have none.
const Setting<QString> userAgentSetting{"userAgent"_L1, &SourceConfig::userAgent};

/// Reads the current entry of the array that is open. A missing key leaves the field's default.
SourceConfig readSource(const QSettings &settings)
{
    SourceConfig config = defaultSourceConfig();
    const auto read = [&](const auto &setting) {
        auto &field = config.*setting.field;
        field = settings.value(setting.key, field).template value<std::decay_t<decltype(field)>>();
    };
    std::apply([&](const auto &...columns) { (read(columns), ...); }, settingsTable);
    read(userAgentSetting);
    return config;
}

void writeSource(QSettings &settings, const SourceConfig &config)
{
    const auto write = [&](const auto &setting) {
        settings.setValue(setting.key, config.*setting.field);
    };
    std::apply([&](const auto &...columns) { (write(columns), ...); }, settingsTable);
    if (config.userAgent.isEmpty()) {
        settings.remove(userAgentSetting.key);
    } else {
        write(userAgentSetting);
    }
}

QList<SourceConfig> readSources(QSettings &settings)
{
    QList<SourceConfig> sources;
    const int count = plausibleSize(settings, settings.beginReadArray(sourcesKey));
    for (int index = 0; index < count; ++index) {
        settings.setArrayIndex(index);
        sources.append(readSource(settings));
    }
    settings.endArray();
    return sources;
}

void writeSources(QSettings &settings, const QList<SourceConfig> &sources)
{
    settings.beginWriteArray(sourcesKey, -1);
    for (int index = 0; index < sources.size(); ++index) {
        settings.setArrayIndex(index);
        writeSource(settings, sources.at(index));
    }
    settings.endArray();
}

/// Nothing when the store holds no list, or cannot be read.
std::optional<QList<SourceConfig>> storedSources(QSettings &settings)
{
    if (settings.status() != QSettings::NoError || !settings.contains(sourcesKey + "/size"_L1)) {
        return std::nullopt;
    }
    return readSources(settings);
}

/// The most bytes that these sources take in a settings file.
[[maybe_unused]] qint64 mostBytesOf(const QList<SourceConfig> &sources)
{
    constexpr qint64 keysAndNumbers = 300;
    constexpr qint64 escapedUnit = 6; // as in "\x20ac"
    qint64 units = 0;
    for (const SourceConfig &source : sources) {
        units += source.name.size() + source.url.size() + source.username.size() +
                 source.password.size() + source.liveExtension.size() +
                 source.subscriptionKey.size() + source.userAgent.size();
    }
    return sources.size() * keysAndNumbers + units * escapedUnit;
}

/// False on a disk without room for the settings with these sources: QSettings replaces its file
/// even by one that a full disk has cut short, and all sources would be gone.
bool hasRoom(const QSettings &settings, const QList<SourceConfig> &sources)
{
#ifdef Q_OS_WIN
    Q_UNUSED(settings) // the registry changes single values
    Q_UNUSED(sources)
    return true;
#else
    const qint64 ampleGrowth = 64LL * 1024 + mostBytesOf(sources);
    const QFileInfo file(settings.fileName());
    QTemporaryFile trial(file.filePath());
    if (!file.exists() || !trial.open()) {
        return true;
    }
    const QByteArray bytes(file.size() + ampleGrowth, '\n');
    return trial.write(bytes) == bytes.size() && trial.flush();
#endif
}

/// Keeps other running programs from changing the list between a read and the write that follows.
/// Does without when that cannot be had.
class StoreLock
{
public:
    StoreLock()
    {
        QDir().mkpath(folder);
        (void)file.tryLock(longestWaitMs);
    }

private:
    static constexpr int longestWaitMs = 20'000; // a slow disk and several programs
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QLockFile file{folder + "/sources.lock"_L1};
};

/// Keeps others from reading the store, which holds passwords: creates it readable by its owner
/// only where it is missing, or narrows it. Qt keeps what it finds. On Windows the registry does
/// that.
void makePrivate([[maybe_unused]] const QSettings &settings)
{
#ifndef Q_OS_WIN
    QFile file(settings.fileName());
    QDir().mkpath(QFileInfo(file).path());
    openOwnerOnly(file, QIODevice::ReadWrite);
#endif
}

auto findByName(QList<SourceConfig> &list, const QString &name)
{
    return std::find_if(list.begin(), list.end(),
                        [&name](const SourceConfig &source) { return source.name == name; });
}

} // namespace

SourceManager::SourceManager(QObject *parent)
    : QObject(parent)
{
    load();
}

void SourceManager::setLastActiveSourceName(const QString &name)
{
    if (name == lastActiveName) {
        return;
    }
    lastActiveName = name;
    QSettings settings(organization, application);
    if (hasRoom(settings, {})) {
        makePrivate(settings);
        settings.setValue(lastActiveKey, name);
    }
}

void SourceManager::saveSource(const SourceConfig &config)
{
    const auto found = findByName(sourceList, config.name);
    if (found != sourceList.end()) {
        *found = config;
    } else {
        sourceList.append(config);
    }
    persist();
}

void SourceManager::removeSource(const QString &name)
{
    const auto found = findByName(sourceList, name);
    if (found != sourceList.end()) {
        sourceList.erase(found);
    }
    persist();
}

bool SourceManager::setSources(const QList<SourceConfig> &sources)
{
    if (!store(sources, OnFailure::GiveUp)) {
        return false;
    }
    sourceList = sources;
    return true;
}

void SourceManager::load()
{
    QSettings settings(organization, application);
    lastActiveName = settings.value(lastActiveKey).toString();
    sourceList = readSources(settings);
    knownList = sourceList;
}

void SourceManager::persist()
{
    (void)store(sourceList, OnFailure::TryAgain);
}

bool SourceManager::store(const QList<SourceConfig> &sources, OnFailure onFailure)
{
    const StoreLock lock;
    QSettings settings(organization, application);
    if (!hasRoom(settings, sources)) {
        return false;
    }
    makePrivate(settings);
    const auto stored = storedSources(settings);
    writeSources(settings, stored ? mergeSources(knownList, sources, *stored) : sources);
    settings.sync();
    // A format error tells of what was read before, not of what was written.
    if (settings.status() != QSettings::AccessError) {
        knownList = sources;
        return true;
    }
    if (onFailure == OnFailure::GiveUp) {
        // Settings keep what they could not write, and write it with the next change.
        settings.remove(sourcesKey);
        if (stored) {
            writeSources(settings, *stored);
        }
    }
    return false;
}
