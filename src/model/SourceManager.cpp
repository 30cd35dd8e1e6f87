#include "model/SourceManager.h"

#include <QSettings>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString organization = u"Vantiro"_s;
const QString application = u"Player"_s;
const QString lastActiveKey = u"lastActiveSource"_s;
const QString sourcesKey = u"sources"_s;

/// The number of entries to read from the array that is open: the stored size, unless it is damaged
/// and would fill the memory with empty records; then what is really there.
int believableSize(const QSettings &settings, int storedSize)
{
    constexpr int moreThanAnyoneHas = 10000;
    if (storedSize <= moreThanAnyoneHas) {
        return storedSize;
    }
    int highest = 0;
    const QStringList indexes = settings.childGroups();
    for (const QString &index : indexes) {
        highest = std::max(highest, std::min(index.toInt(), moreThanAnyoneHas));
    }
    return highest;
}

SourceConfig readSource(const QSettings &settings)
{
    SourceConfig config;
    config.type = settings.value("type"_L1, 0).toInt();
    config.name = settings.value("name"_L1).toString();
    config.url = settings.value("url"_L1).toString();
    config.username = settings.value("username"_L1).toString();
    config.password = settings.value("password"_L1).toString();
    config.liveExtension = settings.value("liveExtension"_L1, defaultLiveExtension()).toString();
    config.subscriptionKey = settings.value("subscriptionKey"_L1).toString();
    config.lastUpdated = settings.value("lastUpdated"_L1, 0).toLongLong();
    return config;
}

void writeSource(QSettings &settings, const SourceConfig &config)
{
    settings.setValue("type"_L1, config.type);
    settings.setValue("name"_L1, config.name);
    settings.setValue("url"_L1, config.url);
    settings.setValue("username"_L1, config.username);
    settings.setValue("password"_L1, config.password);
    settings.setValue("liveExtension"_L1, config.liveExtension);
    settings.setValue("subscriptionKey"_L1, config.subscriptionKey);
    settings.setValue("lastUpdated"_L1, config.lastUpdated);
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
    QSettings(organization, application).setValue(lastActiveKey, name);
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

void SourceManager::load()
{
    sourceList.clear();
    QSettings settings(organization, application);
    lastActiveName = settings.value(lastActiveKey).toString();
    const int count = believableSize(settings, settings.beginReadArray(sourcesKey));
    for (int index = 0; index < count; ++index) {
        settings.setArrayIndex(index);
        sourceList.append(readSource(settings));
    }
    settings.endArray();
}

void SourceManager::persist()
{
    QSettings settings(organization, application);
    settings.beginWriteArray(sourcesKey, -1);
    for (int index = 0; index < sourceList.size(); ++index) {
        settings.setArrayIndex(index);
        writeSource(settings, sourceList.at(index));
    }
    settings.endArray();
}
