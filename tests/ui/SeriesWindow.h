#pragma once

#include "WindowFixture.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

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

    /// Opens the window; before that, sources and caches can be added.
    void open();
    WindowFixture &fixture() { return windowFixture; }
    MainWindow &window() const { return windowFixture.window(); }

    /// Puts episodes of a show into the cache, as saved so many seconds ago.
    static void cacheEpisodes(const QString &seriesId, const QList<Episode> &episodes,
                              qint64 ageSeconds = 0);
    /// Opens the episode page of "Show" or another one.
    void show(const QString &seriesId = QStringLiteral("9"),
              const QString &name = QStringLiteral("Show"));
    /// Opens the window, and in it the episode page of "Show" with mixedSeasons() from the cache.
    void openEpisodes();
    void goBack() const;
    int page() const;
    EpisodePage &episodePage() const;
    QTreeWidget &tree() const;
    QTreeWidgetItem *episodeRow(int season, int index) const;
    void click(const QTreeWidgetItem *row) const;
    QString title() const;
    QString playingText() const;
    QPushButton &nextButton() const;

    /// Waits until no answer of the provider is awaited any more.
    [[nodiscard]] bool settle() const;
    int apiRequests() const { return server.requestCount(apiPath()); }

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
/// The text of every row from top to bottom, episodes indented by two blanks.
QStringList treeTexts(const QTreeWidget &tree);
