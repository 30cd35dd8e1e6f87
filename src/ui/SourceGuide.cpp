#include "ui/SourceGuide.h"

#include "guide/Guide.h"
#include "library/Library.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int lookMs = 10 * 60 * 1000;
constexpr qint64 refreshSeconds = 12LL * 3600;
/// After an update that met a problem.
constexpr qint64 retrySeconds = 3600;
constexpr qint64 daySeconds = 24LL * 3600;

bool hasProblem(const GuideResult &result)
{
    return std::any_of(
        result.addresses.cbegin(), result.addresses.cend(),
        [](const GuideAddressResult &one) { return one.problem != GuideProblem::None; });
}

} // namespace

SourceGuide::SourceGuide(Library *userLibrary, QObject *parent)
    : QObject(parent)
    , library(userLibrary)
    , stored(new Guide(this))
    , updater(nullptr)
{
    clock.setInterval(lookMs);
    connect(&clock, &QTimer::timeout, this, &SourceGuide::refreshIfDue);
    connect(&updater, &GuideUpdate::progressed, this, &SourceGuide::progressed);
    connect(&updater, &GuideUpdate::finished, this, &SourceGuide::takeResult);
    connect(library, &Library::changed, this, [this](LibraryPart part, const QString &changed) {
        // Also by a restored backup, or by taking a change back.
        if (part == LibraryPart::GuideSettings && changed == active.name) {
            follow();
        } else if (part == LibraryPart::GuideCorrections && changed == active.name && isOn()) {
            rematch();
        }
    });
}

EntryKind SourceGuide::kind() const
{
    return SourceType::isAccount(active.type) ? EntryKind::Live : EntryKind::Channel;
}

bool SourceGuide::isOn() const
{
    return stored->isOpen();
}

GuideSettings SourceGuide::settings() const
{
    return library->guideSettings(active.name);
}

void SourceGuide::setSource(const SourceConfig &config)
{
    const bool isSame = config.name == active.name;
    active = config;
    if (!isSame) {
        turnOff();
        followed = {};
        result = {};
        resultIsKnown = false;
        fetchedAddresses.clear();
    }
    follow();
    refreshIfDue();
}

void SourceGuide::turnOff()
{
    clock.stop();
    updater.cancel();
    if (isOn()) {
        stored->close();
        Q_EMIT turned(false);
    }
}

/// Brings the guide in line with the settings.
void SourceGuide::follow()
{
    const GuideSettings wanted = settings();
    const GuideSettings before = std::exchange(followed, wanted);
    const bool on = wanted.enabled && !active.name.isEmpty();
    if (!on) {
        turnOff();
        return;
    }
    if (!isOn() || before.offsetSeconds != wanted.offsetSeconds) {
        const bool wasOn = isOn();
        stored->open(Guide::filePath(active.name), wanted.offsetSeconds);
        if (!wasOn) {
            Q_EMIT turned(true);
        }
    }
    if (wanted.refresh) {
        clock.start();
    } else {
        clock.stop();
    }
    if (!resultIsKnown) {
        stored->fetchLastResult([this](const GuideResult &last) {
            if (!isUpdating()) {
                result = last;
                fetchedAddresses = followed.addresses;
            }
            resultIsKnown = true;
            refreshIfDue();
        });
    }
}

/// Updates a guide that was never fetched, or that is to be refreshed and old.
void SourceGuide::refreshIfDue()
{
    const bool hasAddress =
        !active.url.isEmpty(); // a subscription has one once its key was exchanged
    if (!isOn() || !hasAddress || !resultIsKnown || isUpdating()) {
        return;
    }
    const qint64 age = QDateTime::currentSecsSinceEpoch() - result.finishedAt;
    // A clock that was set back must not keep a guide old.
    const bool isOld = age < 0 || age >= (hasProblem(result) ? retrySeconds : refreshSeconds);
    if (result.finishedAt == 0 || (followed.refresh && isOld)) {
        update(followed);
    }
}

void SourceGuide::setSettings(const GuideSettings &wanted)
{
    GuideSettings named = wanted;
    named.source = active.name;
    library->setGuideSettings(named);
    if (named.enabled && named.addresses != fetchedAddresses) {
        update(named);
    }
}

// ---- updates ----

GuideUpdateRequest SourceGuide::request(const GuideSettings &wanted) const
{
    GuideUpdateRequest made;
    made.source = active;
    made.storePath = Guide::filePath(active.name);
    made.addresses = wanted.addresses.split(u'\n', Qt::SkipEmptyParts);
    for (QString &address : made.addresses) {
        if (address == accountGuideAddress) {
            address = GuideUpdateRequest::accountGuide;
        }
    }
    made.language = QLocale().name().section(u'_', 0, 0);
    for (const GuideCorrection &correction : library->guideCorrections(active.name, kind())) {
        made.corrections.insert(correction.id, correction.guideId);
    }
    return made;
}

void SourceGuide::update(const GuideSettings &wanted)
{
    if (!active.name.isEmpty()) {
        fetchedAddresses = wanted.addresses;
        updater.start(request(wanted));
    }
}

void SourceGuide::cancelUpdate()
{
    if (isUpdating()) {
        updater.cancel();
        fetchedAddresses.clear();
        GuideResult cancelled = result;
        cancelled.cancelled = true;
        Q_EMIT updated(cancelled);
    }
}

void SourceGuide::takeResult(const GuideResult &newResult)
{
    result = newResult;
    resultIsKnown = true;
    stored->reload();
    Q_EMIT updated(result);
    const QString entry = std::exchange(corrected, {});
    if (entry.isEmpty()) {
        return;
    }
    // Programmes are stored of channels that had an entry at the last update.
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    stored->fetchTitles({entry}, now - daySeconds, now + daySeconds,
                        [this, entry](const QHash<QString, GuideSchedule> &answer) {
                            const GuideSchedule found = answer.value(entry);
                            if (!found.entry.match.id.isEmpty() && found.programmes.isEmpty()) {
                                update(followed);
                            }
                        });
}

// ---- corrections ----

void SourceGuide::setCorrection(const MediaItem &entry, const QString &guideId)
{
    GuideCorrection correction;
    static_cast<LibraryEntry &>(correction) = libraryEntry(active.name, kind(), entry);
    correction.guideId = guideId;
    corrected = entry.id;
    library->setGuideCorrection(correction);
}

void SourceGuide::removeCorrection(const MediaItem &entry)
{
    corrected = entry.id;
    library->removeGuideCorrection(libraryEntry(active.name, kind(), entry));
}

/// Matches the entries with the stored guide anew. An update that runs starts again, with the
/// corrections as they are now.
void SourceGuide::rematch()
{
    if (isUpdating()) {
        update(followed);
    } else {
        updater.rematch(request(followed));
    }
}

// ---- sources ----

void SourceGuide::moveSource(const QString &from, const QString &to)
{
    const bool isActive = from == active.name;
    if (isActive) {
        turnOff();
        active.name = to;
    }
    stored->moveFile(Guide::filePath(from), to.isEmpty() ? QString() : Guide::filePath(to));
    if (isActive) {
        follow();
    }
}
