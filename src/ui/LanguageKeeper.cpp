#include "ui/LanguageKeeper.h"

#include "library/Library.h"
#include "player/VlcPlayer.h"
#include "ui/PlaybackSession.h"

#include <QLocale>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace {

/// The track of that language, -1 if there is none.
int trackOf(const VlcPlayer &player, const QList<VlcPlayer::Track> &tracks, const QString &language)
{
    const auto found =
        std::find_if(tracks.begin(), tracks.end(), [&](const VlcPlayer::Track &track) {
            return canonicalLanguage(player.trackLanguage(track.first)) == language;
        });
    return found != tracks.end() ? found->first : -1;
}

} // namespace

QString canonicalLanguage(const QString &language)
{
    const QLocale::Language known = QLocale::codeToLanguage(language.trimmed());
    return known != QLocale::AnyLanguage && known != QLocale::C ? QLocale::languageToCode(known)
                                                                : language.trimmed().toLower();
}

LanguageKeeper::LanguageKeeper(VlcPlayer *vlcPlayer, PlaybackSession *session, Library *userLibrary,
                               PlayingSource sourceOfPlaying, QObject *parent)
    : QObject(parent)
    , player(vlcPlayer)
    , library(userLibrary)
    , playingSource(std::move(sourceOfPlaying))
{
    connect(session, &PlaybackSession::starting, this, &LanguageKeeper::beginStream);
    connect(player, &VlcPlayer::playbackProgressing, this, &LanguageKeeper::selectTracks);
    connect(player, &VlcPlayer::audioTrackSet, this, &LanguageKeeper::noteAudio);
    connect(player, &VlcPlayer::subtitleTrackSet, this, &LanguageKeeper::noteSubtitles);
    // A file holds for the stream only, which keeps it then.
    connect(player, &VlcPlayer::subtitleFileAdded, this, [this] { subtitlesAreOpen = false; });
}

void LanguageKeeper::beginStream()
{
    const QString source = playingSource();
    const PreferredLanguages languages =
        source.isEmpty() ? PreferredLanguages() : library->preferredLanguages(source);
    audioIsOpen = !languages.audio.isEmpty();
    subtitlesAreOpen = !languages.subtitles.isEmpty();
}

void LanguageKeeper::selectTracks()
{
    const QString source = playingSource();
    if (source.isEmpty() || (!audioIsOpen && !subtitlesAreOpen)) {
        return;
    }
    const QScopedValueRollback guard(selecting, true);
    const PreferredLanguages languages = library->preferredLanguages(source);
    audioIsOpen = audioIsOpen && !selectAudio(languages.audio);
    subtitlesAreOpen = subtitlesAreOpen && !selectSubtitles(languages.subtitles);
}

bool LanguageKeeper::selectAudio(const QString &language)
{
    const int track = trackOf(*player, player->audioTracks(), language);
    if (track >= 0 && track != player->currentAudioTrack()) {
        player->setAudioTrack(track);
    }
    return track >= 0;
}

/// Subtitles that are off stay off: libVLC may select some whenever tracks come.
bool LanguageKeeper::selectSubtitles(const QString &language)
{
    if (language == subtitlesOff) {
        if (player->currentSubtitleTrack() >= 0) {
            player->setSubtitleTrack(-1);
        }
        return false;
    }
    const int track = trackOf(*player, player->subtitleTracks(), language);
    if (track >= 0 && track != player->currentSubtitleTrack()) {
        player->setSubtitleTrack(track);
    }
    return track >= 0;
}

void LanguageKeeper::noteAudio(int id)
{
    if (selecting) {
        return;
    }
    audioIsOpen = false;
    const QString source = playingSource();
    const QString language = canonicalLanguage(player->trackLanguage(id));
    if (!source.isEmpty() && !language.isEmpty()) {
        PreferredLanguages languages = library->preferredLanguages(source);
        languages.audio = language;
        library->setPreferredLanguages(languages);
    }
}

void LanguageKeeper::noteSubtitles(int id)
{
    if (selecting) {
        return;
    }
    subtitlesAreOpen = false;
    const QString source = playingSource();
    const QString language =
        id < 0 ? subtitlesOff.toString() : canonicalLanguage(player->trackLanguage(id));
    if (!source.isEmpty() && !language.isEmpty()) {
        PreferredLanguages languages = library->preferredLanguages(source);
        languages.subtitles = language;
        library->setPreferredLanguages(languages);
    }
}
