#include "library/Library.h"

#include "library/LibraryTables.h"
#include "library/LibraryWriter.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStandardPaths>

#include <algorithm>
#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Up to here, a file is read within a few frames.
constexpr qint64 largeFileBytes = 1024LL * 1024;

qint64 now()
{
    return QDateTime::currentSecsSinceEpoch();
}

} // namespace

QString Library::defaultFilePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/library.sqlite"_L1;
}

Library::Library(QObject *parent)
    : Library(defaultFilePath(), parent)
{}

Library::Library(const QString &filePath, QObject *parent)
    : QObject(parent)
    , path(filePath)
    , writer(new LibraryWriter(filePath, this))
{
    connect(writer, &LibraryWriter::setAside, this, &Library::keepAll);
    connect(writer, &LibraryWriter::unavailable, this, [this](const QString &reason) {
        report(tr("Favorites and positions cannot be stored: %1").arg(reason));
    });
    connect(writer, &LibraryWriter::foundNewer, this, [this] {
        report(tr("Favorites and positions were stored by a newer version of this program. They "
                  "stay as they are, and changes are not stored."));
    });
    followers.setMaxThreadCount(1);
    connect(writer, &LibraryWriter::loaded, this, &Library::announceAll);
    if (QFile::exists(filePath)) {
        isLoaded = false;
        isLarge = QFileInfo(filePath).size() > largeFileBytes;
        writer->beginLoading();
    }
}

Library::~Library()
{
    followers.waitForDone();
    // Before the other members: it still reports.
    delete writer;
}

/// All that there is; waits for the file.
const LibraryState &Library::state() const
{
    if (!isLoaded) {
        loadedState = writer->takeState();
        isLoaded = true;
    }
    return loadedState;
}

/// Before a change: it depends on what there is.
void Library::waitUntilLoaded()
{
    if (isLarge) {
        announceAll();
    }
    state();
}

/// What is known without a long wait.
const LibraryState &Library::known() const
{
    return isLarge ? loadedState : state();
}

/// A large file was read.
void Library::announceAll()
{
    if (std::exchange(isLarge, false)) {
        LibraryTables::forEach([this](const auto &table) {
            using Row = typename std::decay_t<decltype(table)>::Row;
            const QList<LibraryListId> lists = state().lists<Row>().keys();
            for (const LibraryListId &list : lists) {
                Q_EMIT changed(table.part, list.source, list.kind);
            }
        });
    }
    if (const auto follow = std::exchange(followWhenLoaded, nullptr)) {
        follow();
    }
}

void Library::report(const QString &text)
{
    if (text != lastProblem) {
        lastProblem = text;
        Q_EMIT problem(text);
    }
}

/// The file was damaged: what is in memory goes to the new one.
void Library::keepAll(const QString &aside)
{
    LibraryChange all;
    all.put = rows();
    if (!all.isEmpty()) {
        writer->write(all);
    }
    report(tr("The file with your favorites and positions was damaged. It was kept as \"%1\", and "
              "a new one was begun.")
               .arg(QDir::toNativeSeparators(aside)));
}

// ---- changes ----

LibraryChange Library::apply(const LibraryChange &change)
{
    waitUntilLoaded();
    LibraryChange inverse = loadedState.apply(change);
    // The file may have rows that another running program wrote.
    const bool concernsOthers = !change.cleared.isEmpty() || !change.moves.isEmpty();
    if (!inverse.isEmpty() || (concernsOthers && QFile::exists(path))) {
        writer->write(change);
        announce(inverse);
    }
    return inverse;
}

bool Library::applyNow(const LibraryChange &change)
{
    waitUntilLoaded();
    if (!writer->writeNow(change)) {
        return false;
    }
    announce(loadedState.apply(change));
    return true;
}

bool Library::flush()
{
    followers.waitForDone();
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    return writer->flush();
}

/// Emits changed() for every list that a change and its inverse touch.
void Library::announce(const LibraryChange &inverse)
{
    LibraryTables::forEach([&](const auto &table) {
        QSet<LibraryListId> touched;
        for (const auto &rows : {inverse.removed.*table.rows, inverse.put.*table.rows}) {
            for (const auto &row : rows) {
                touched.insert({row.source, row.kind});
            }
        }
        for (const LibraryListId &list : std::as_const(touched)) {
            Q_EMIT changed(table.part, list.source, list.kind);
        }
    });
}

bool Library::isEmpty(LibraryPart part) const
{
    bool empty = true;
    LibraryTables::forEach([&](const auto &table) {
        using Row = typename std::decay_t<decltype(table)>::Row;
        empty = empty && (table.part != part || known().lists<Row>().isEmpty());
    });
    return empty;
}

LibraryRows Library::rows() const
{
    return state().rows();
}

LibraryChange Library::clear(const QList<LibraryPart> &parts)
{
    LibraryChange change;
    change.cleared = parts;
    return apply(change);
}

// ---- favorites ----

const LibraryList<Favorite> &Library::favorites(const QString &source, EntryKind kind) const
{
    return known().list<Favorite>({source, kind});
}

QList<Favorite> Library::favoritesInOrder(const QString &source, EntryKind kind) const
{
    QList<Favorite> ordered = favorites(source, kind).values();
    std::sort(ordered.begin(), ordered.end(), [](const Favorite &a, const Favorite &b) {
        return std::tie(a.place, a.addedAt, a.id) < std::tie(b.place, b.addedAt, b.id);
    });
    return ordered;
}

LibraryChange Library::addFavorite(const LibraryEntry &entry)
{
    waitUntilLoaded();
    const LibraryList<Favorite> &list = favorites(entry.source, entry.kind);
    if (list.contains(entry.id)) {
        return {};
    }
    qint64 lastPlace = 0;
    for (const Favorite &other : list) {
        lastPlace = std::max(lastPlace, other.place);
    }
    LibraryChange change;
    change.put.favorites.append({entry, lastPlace + 1, now()});
    return apply(change);
}

LibraryChange Library::removeFavorite(const LibraryEntry &entry)
{
    LibraryChange change;
    change.removed.favorites.append({entry, 0, 0});
    return apply(change);
}

LibraryChange Library::setFavoriteOrder(const QString &source, EntryKind kind,
                                        const QStringList &ids)
{
    waitUntilLoaded();
    QHash<QString, qsizetype> positions;
    for (const QString &id : ids) {
        positions.insert(id, positions.size());
    }
    QList<Favorite> ordered = favoritesInOrder(source, kind);
    const auto position = [&](const Favorite &row) { return positions.value(row.id, ids.size()); };
    std::stable_sort(ordered.begin(), ordered.end(), [&](const Favorite &a, const Favorite &b) {
        return position(a) < position(b);
    });
    LibraryChange change;
    for (qint64 place = 1; Favorite & row : ordered) {
        if (row.place != place) {
            row.place = place;
            change.put.favorites.append(row);
        }
        ++place;
    }
    return apply(change);
}

// ---- recently watched ----

QList<WatchedEntry> Library::recentlyWatched(const QString &source, EntryKind kind) const
{
    QList<WatchedEntry> ordered = historyInOrder(source, kind);
    return ordered.size() > recentlyWatchedCount ? ordered.first(recentlyWatchedCount) : ordered;
}

QList<WatchedEntry> Library::historyInOrder(const QString &source, EntryKind kind) const
{
    QList<WatchedEntry> ordered = known().list<WatchedEntry>({source, kind}).values();
    std::sort(ordered.begin(), ordered.end(), [](const WatchedEntry &a, const WatchedEntry &b) {
        return std::tie(b.watchedAt, a.id) < std::tie(a.watchedAt, b.id);
    });
    return ordered;
}

LibraryChange Library::noteWatched(const LibraryEntry &entry)
{
    waitUntilLoaded();
    QList<WatchedEntry> others = historyInOrder(entry.source, entry.kind);
    // The clock may stand still between two entries, or have been set back.
    const qint64 latest = others.isEmpty() ? 0 : others.constFirst().watchedAt + 1;
    others.removeIf([&entry](const WatchedEntry &other) { return other.id == entry.id; });
    LibraryChange change;
    change.removed.history = others.mid(recentlyWatchedCount - 1);
    change.put.history.append({entry, std::max(now(), latest)});
    return apply(change);
}

LibraryChange Library::removeFromRecentlyWatched(const LibraryEntry &entry)
{
    LibraryChange change;
    change.removed.history.append({entry, 0});
    return apply(change);
}

// ---- hidden categories ----

const LibraryList<HiddenCategory> &Library::hiddenCategories(const QString &source,
                                                             EntryKind kind) const
{
    return known().list<HiddenCategory>({source, kind});
}

LibraryChange Library::hideCategory(const QString &source, EntryKind kind, const Category &category)
{
    LibraryChange change;
    change.put.hiddenCategories.append(
        HiddenCategory{{source, kind, category.id, category.name, {}}});
    return apply(change);
}

LibraryChange Library::unhideCategory(const QString &source, EntryKind kind,
                                      const QString &categoryId)
{
    LibraryChange change;
    change.removed.hiddenCategories.append(HiddenCategory{{source, kind, categoryId, {}, {}}});
    return apply(change);
}
