#pragma once

#include "WindowFixture.h"

#include <QLabel>

class QTreeWidget;

/// The window on the TV Shows tab of an account with the shows "Other" (id 8) and "Show" (id 9),
/// and its provider. The account has a channel and a film too; no stream ever answers.
class SeriesWindow : public WindowFixture
{
public:
    SeriesWindow();

    HttpServer server;
    /// Where the provider answers for catalogs and episodes.
    static QString apiPath() { return QStringLiteral("/player_api.php"); }
    int apiRequests() const { return server.requestCount(apiPath()); }

    /// Opens the window; before that, sources and caches can be added.
    void open();
    /// Puts episodes of a show into the cache, as saved so many seconds ago.
    static void cacheEpisodes(const QString &seriesId, const QList<Episode> &episodes,
                              qint64 ageSeconds = 0);
    /// How many episodes of the show the source's cache holds; -1 when it does not know the show.
    static int cachedEpisodes(const QString &source, const QString &seriesId);
    /// Caches an empty catalog for the source.
    static void cacheEmptyCatalog(const QString &source);
    /// Opens the episode page of "Show" or of another one.
    void show(const QString &seriesId = QStringLiteral("9"),
              const QString &name = QStringLiteral("Show"));
    /// Opens the window, and in it the episode page of "Show" with mixedSeasons() from the cache.
    void openEpisodes();
    void goBack() const { button(QStringLiteral("< Back to Shows")).click(); }
    int page() const;
    QString title() const { return find<QLabel>(QStringLiteral("episodeTitleLabel")).text(); }
    QTreeWidget &tree() const;
    /// Every row from top to bottom, seasons with a colon.
    QStringList rows() const;
    /// Chooses an episode's row, by season and episode from 0 on.
    void choose(int season, int index) const;
    QString playingText() const { return find<QLabel>(QStringLiteral("mutedLabel")).text(); }
    QPushButton &nextButton() const { return button(QStringLiteral("Next Episode")); }
    /// Waits until the provider owes no reply.
    [[nodiscard]] bool settle() const;
};

Episode episode(const QString &id, qint32 season, qint32 number, const QString &title,
                const QString &extension = {});
/// Seasons 2 and 1, mixed: S02E01 "Return" (id 21, mkv), S01E01 "Start" (11), S01E12 "Pilot" (12),
/// S02E02 "End" (22).
QList<Episode> mixedSeasons();
/// Three episodes as a provider sends them, the first of them S01E02 "Pilot" (id 5, avi), and their
/// rows.
QByteArray seriesInfo();
QStringList seriesInfoRows();
