#pragma once

#include <QString>

/// The program's wordings that several tests look for.
namespace UiTexts {

inline const QString mainWindow = QStringLiteral("Vantiro Player");
inline const QString addSourceDialog = QStringLiteral("Add Source");
inline const QString errorTitle = QStringLiteral("Playback Error");
inline const QString streamError =
    QStringLiteral("Playback stopped: libVLC encountered an error while streaming.");
inline const QString infoTitle = QStringLiteral("Stream Info");

inline const QString liveTab = QStringLiteral("Live TV");
inline const QString moviesTab = QStringLiteral("Movies");
inline const QString showsTab = QStringLiteral("TV Shows");
inline const QString allCategories = QStringLiteral("All Categories");

inline const QString disabledTrack = QStringLiteral("Disable");
inline const QString loadSubtitles = QStringLiteral("Load Subtitle File...");

/// @name The line above the controls
/// @{
inline QString playing(const QString &title)
{
    return QStringLiteral("Playing: ") + title;
}
inline QString reconnecting(const QString &title, int attempt)
{
    return QStringLiteral("Reconnecting to %1... (attempt %2)").arg(title).arg(attempt);
}
/// @}

} // namespace UiTexts
