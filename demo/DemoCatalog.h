#pragma once

#include <QList>
#include <QString>

/// Something of the demo provider that plays: a channel, a film or an episode.
struct DemoEntry
{
    int id = 0;
    QString name;
    /// Of its kind, from 1 on.
    int category = 1;
    /// The file of its stream, in the streams folder; its suffix is the container.
    QString file;
    double rating = 0.0;
    int year = 2020;
    /// The stream ends every 30 seconds.
    bool dropsOut = false;
    /// The film has two sound and two subtitle tracks.
    bool manyTracks = false;
};

/// What the demo provider offers. Nothing in it exists outside this program.
namespace DemoCatalog {

inline constexpr int showId = 900;
inline constexpr int seasons = 3;
inline constexpr int episodesPerSeason = 3;

const QList<DemoEntry> &channels();
const QList<DemoEntry> &films();
/// The episodes of the one show, season by season.
const QList<DemoEntry> &episodes();
QString showName();

const QList<QString> &channelCategories();
const QList<QString> &filmCategories();
const QList<QString> &showCategories();

} // namespace DemoCatalog
