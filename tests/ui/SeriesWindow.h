#pragma once

#include "WindowFixture.h"

class EpisodePage;
class QTreeWidget;
class QTreeWidgetItem;

/// The window on the TV Shows tab of an account with the shows "Other" (id 8) and "Show" (id 9),
/// and its provider. The account has a channel and a film too; every stream is ten seconds of
/// sound.
class SeriesWindow
{
public:
    SeriesWindow();

    HttpServer server;
    /// Where the provider answers for catalogs and episodes.
    static QString apiPath() { return QStringLiteral("/player_api.php"); }
    int apiRequests() const { return server.requestCount(apiPath()); }

    /// Opens the window; before that, sources and caches can be added.
    void open();
    WindowFixture &fixture() { return windowFixture; }
    MainWindow &window() const { return windowFixture.window(); }

    /// Puts episodes of a show into the cache, as saved so many seconds ago.
    static void cacheEpisodes(const QString &seriesId, const QList<Episode> &episodes,
                              qint64 ageSeconds = 0);
    /// How many episodes of the show are in the cache of the source; -1 when it does not know it.
    static int cachedEpisodes(const QString &source, const QString &seriesId);
    /// Caches an empty catalog for the source.
    static void cacheEmptyCatalog(const QString &source);
    /// Opens the episode page of "Show" or of another one.
    void show(const QString &seriesId = QStringLiteral("9"),
              const QString &name = QStringLiteral("Show"));
    /// Opens the window, and in it the episode page of "Show" with mixedSeasons() from the cache.
    void openEpisodes();
    void goBack() const;
    int page() const;
    QString title() const;
    QTreeWidget &tree() const;
    /// Every row from top to bottom, seasons with a colon.
    QStringList rows() const;
    /// Clicks a row of the tree, by season and episode from 0 on.
    void click(int season, int index) const;
    /// Chooses a row though the page may be out of sight.
    void choose(int season, int index) const;
    QString playingText() const;
    QPushButton &nextButton() const;

    /// Waits until the provider owes no reply.
    [[nodiscard]] bool settle() const;

private:
    WindowFixture windowFixture;
};

Episode episode(const QString &id, qint32 season, qint32 number, const QString &title,
                const QString &extension = {});
/// Seasons 2 and 1, mixed: S02E01 "Return" (id 21, mkv), S01E01 "Start" (11), S01E12 "Pilot" (12),
/// S02E02 "End" (22).
QList<Episode> mixedSeasons();
/// Three episodes as a provider sends them: S01E02 "Pilot" (id 5, avi), S01E03 "Second" (6), S10E01
/// "Third" (7).
QByteArray seriesInfo();
/// The rows of seriesInfo().
QStringList seriesInfoRows();
