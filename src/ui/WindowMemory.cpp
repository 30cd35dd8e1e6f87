#include "ui/WindowMemory.h"

#include <QSettings>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString geometryKey = u"geometry"_s;
const QString maximizedKey = u"maximized"_s;
const QString splitterKey = u"splitter"_s;
const QString volumeKey = u"volume"_s;
const QString volumeBeforeMuteKey = u"volumeBeforeMute"_s;
const QString sortOrdersKey = u"sortOrders"_s;

const QString organization = u"Vantiro"_s;
const QString application = u"Window"_s;

/// 100 for what is no percentage from `minimum` on.
int percentOf(const QVariant &value, int minimum)
{
    bool isNumber = false;
    const int percent = value.toInt(&isNumber);
    return isNumber && percent >= minimum && percent <= 100 ? percent : 100;
}

/// Two widths of which one is visible at least; otherwise nothing.
QList<int> splitterSizesOf(const QVariant &value)
{
    constexpr int widestScreen = 100'000;
    QList<int> sizes;
    for (const QVariant &entry : value.toList()) {
        sizes << std::clamp(entry.toInt(), 0, widestScreen);
    }
    const bool isUsable = sizes.size() == 2 && sizes.at(0) + sizes.at(1) > 0;
    return isUsable ? sizes : QList<int>();
}

QVariantList variants(const QList<int> &numbers)
{
    return {numbers.begin(), numbers.end()};
}

} // namespace

WindowMemory::WindowMemory()
{
    QSettings settings(organization, application);
    settings.setFallbacksEnabled(false);
    isStored = isKnown = settings.contains(geometryKey);
    if (!isStored) {
        return;
    }
    current.geometry = settings.value(geometryKey).toByteArray();
    current.isMaximized = settings.value(maximizedKey).toBool();
    current.splitterSizes = splitterSizesOf(settings.value(splitterKey));
    current.volume = percentOf(settings.value(volumeKey, 100), 0);
    current.volumeBeforeMute = percentOf(settings.value(volumeBeforeMuteKey, 100), 1);
    settings.beginGroup(sortOrdersKey);
    const QStringList tabs = settings.childKeys();
    for (const QString &tab : tabs) {
        current.sortOrders.insert(tab, settings.value(tab).toString());
    }
}

void WindowMemory::store(const WindowState &state)
{
    if (isKnown && state != current) {
        QSettings settings(organization, application);
        settings.setValue(geometryKey, state.geometry);
        settings.setValue(maximizedKey, state.isMaximized);
        settings.setValue(splitterKey, variants(state.splitterSizes));
        settings.setValue(volumeKey, state.volume);
        settings.setValue(volumeBeforeMuteKey, state.volumeBeforeMute);
        for (auto order = state.sortOrders.begin(); order != state.sortOrders.end(); ++order) {
            settings.setValue(sortOrdersKey + u'/' + order.key(), order.value());
        }
        isStored = true;
    }
    isKnown = true;
    current = state;
}
