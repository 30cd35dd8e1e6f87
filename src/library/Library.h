#pragma once

#include "library/LibraryRecords.h"
#include "library/LibraryState.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QThreadPool>

#include <functional>

class LibraryWriter;

/// What the user keeps: favorites, what was watched and how far, which categories are hidden, and
/// what concerns programme guides.
///
/// Everything is in memory and answers at once; a thread writes each change to the file within
/// moments. The file is made by the first change: without one there is no file and no thread. What
/// another running program writes to the same file is seen after the next start. GUI thread only.
///
/// The first question waits for a file of usual size. A large one is read meanwhile: there is
/// nothing until changed() reports its lists. The first change waits for it.
///
/// Every change returns the change that takes it back; it is empty when nothing changed.
class Library final : public QObject
{
    Q_OBJECT

public:
    /// "library.sqlite" in the application-data folder.
    static QString defaultFilePath();

    /// Begins to read the file where there is one.
    explicit Library(QObject *parent);
    Library(const QString &filePath, QObject *parent);
    /// Waits until all changes are on the disk.
    ~Library() override;
    Q_DISABLE_COPY_MOVE(Library)

    // ---- favorites ----

    /// By the entry's id. Valid until the next change, like all lists that are returned so; empty
    /// at the cost of one look-up when there are none.
    const LibraryList<Favorite> &favorites(const QString &source, EntryKind kind) const;
    /// In the order that the user chose; those that were never moved in the order of adding.
    QList<Favorite> favoritesInOrder(const QString &source, EntryKind kind) const;
    LibraryChange addFavorite(const LibraryEntry &entry);
    LibraryChange removeFavorite(const LibraryEntry &entry);
    /// Puts the favorites with these ids in this order, before all others.
    LibraryChange setFavoriteOrder(const QString &source, EntryKind kind, const QStringList &ids);

    // ---- recently watched ----

    static constexpr int recentlyWatchedCount = 50;

    /// At most recentlyWatchedCount entries, the latest first.
    QList<WatchedEntry> recentlyWatched(const QString &source, EntryKind kind) const;
    /// Brings an entry to the front.
    LibraryChange noteWatched(const LibraryEntry &entry);
    LibraryChange removeFromRecentlyWatched(const LibraryEntry &entry);

    // ---- positions and marks ----

    /// Under this position an entry counts as not begun.
    static constexpr qint64 begunAfterMs = 30'000;
    /// Beyond this share of the duration it counts as finished.
    static constexpr int finishedPercent = 95;

    /// By the entry's id: films, episodes, and the shows of which every episode was watched.
    const LibraryList<Progress> &progress(const QString &source, EntryKind kind) const;

    /// Keeps how far a film or an episode plays; `at` says which, where, and its duration. What
    /// has not begun leaves an earlier position as it is. What is finished is marked as watched.
    LibraryChange notePosition(const Progress &at);
    /// Marks films, the episodes of a season or all episodes of a show, and drops their positions.
    LibraryChange setWatched(const QList<Progress> &entries, bool watched);
    /// Tells which episodes a show has, in their order, whenever that is known: when it is opened,
    /// and after a change of its episodes. Marks the show when all of them were watched.
    LibraryChange noteEpisodes(const LibraryEntry &show, const QStringList &episodeIds);

    /// The films that were left unfinished, the latest first; of EntryKind::Episode one episode of
    /// each show: the one that was left, or the finished one after which the show goes on.
    QList<Progress> continueWatching(const QString &source, EntryKind kind) const;
    /// Whether continueWatching() has any.
    bool hasContinueWatching(const QString &source, EntryKind kind) const;

    // ---- hidden categories ----

    /// By the category's id; `kind` is that of the tab's entries.
    const LibraryList<HiddenCategory> &hiddenCategories(const QString &source,
                                                        EntryKind kind) const;
    LibraryChange hideCategory(const QString &source, EntryKind kind, const Category &category);
    LibraryChange unhideCategory(const QString &source, EntryKind kind, const QString &categoryId);

    // ---- programme guides ----

    /// As they are at first when the user has set nothing.
    GuideSettings guideSettings(const QString &source) const;
    /// Those of the source that `settings` names.
    LibraryChange setGuideSettings(const GuideSettings &settings);

    /// By the entry's id.
    const LibraryList<GuideCorrection> &guideCorrections(const QString &source,
                                                         EntryKind kind) const;
    LibraryChange setGuideCorrection(const GuideCorrection &correction);
    /// The channel has again what is found without the user.
    LibraryChange removeGuideCorrection(const LibraryEntry &entry);

    /// Of all sources, the earliest first; also those that are over.
    QList<Reminder> reminders() const;
    /// As reminderOf() makes it.
    LibraryChange addReminder(const Reminder &reminder);
    LibraryChange removeReminder(const Reminder &reminder);

    // ---- languages ----

    /// Without any when the user has chosen none.
    PreferredLanguages preferredLanguages(const QString &source) const;
    /// Those of the source that `languages` names.
    LibraryChange setPreferredLanguages(const PreferredLanguages &languages);

    // ---- sources ----

    /// Takes the rows along to the new name. A row that is there already gives way.
    LibraryChange renameSource(const QString &from, const QString &to);
    LibraryChange forgetSource(const QString &source);
    /// Gives the rows of a playlist whose URL is no longer there the URL of the first entry of the
    /// same name and category that has no row. Looks for them on another thread; rows that change
    /// meanwhile stay as they are.
    void followEntries(const QString &source, EntryKind kind, const QList<MediaItem> &items);

    // ---- all of it ----

    LibraryRows rows() const;
    /// Whether a part has no rows, of any source.
    bool isEmpty(LibraryPart part) const;
    /// Removes all rows of these parts, of all sources.
    LibraryChange clear(const QList<LibraryPart> &parts);
    /// Makes a change, for instance one that takes another back.
    LibraryChange apply(const LibraryChange &change);
    /// As apply(), but waits until the change is on the disk. False when it cannot be written; then
    /// nothing has changed.
    bool applyNow(const LibraryChange &change);
    /// Waits until all changes are on the disk, those of followEntries() included. False when one
    /// could not be written yet.
    bool flush();

Q_SIGNALS:
    /// Rows of that part, source and kind changed.
    void changed(LibraryPart part, const QString &source, EntryKind kind);
    /// What the user must know of the file, as whole sentences. Each text once in a row.
    void problem(const QString &text);

private:
    const LibraryState &state() const;
    const LibraryState &known() const;
    void waitUntilLoaded();
    void announceAll();
    void followIfUnchanged(const LibraryChange &change);
    QList<const Progress *> unfinished(const QString &source, EntryKind kind) const;
    QList<WatchedEntry> historyInOrder(const QString &source, EntryKind kind) const;
    template <typename Row>
    LibraryChange putChanged(const Row &row, QList<Row> LibraryRows::*rows);
    void announce(const LibraryChange &inverse);
    void report(const QString &text);
    void keepAll(const QString &aside);

    QString path;
    LibraryWriter *writer;
    mutable LibraryState loadedState;
    mutable bool isLoaded = true;
    bool isLarge = false; ///< the file takes long to read
    QThreadPool followers;
    std::function<void()> followWhenLoaded;
    QString lastProblem;
};
