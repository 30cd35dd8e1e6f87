#pragma once

#include <QObject>
#include <QString>

#include <functional>

class Library;
class PlaybackSession;
class VlcPlayer;

/// Keeps the languages that the user chooses by hand, for each source, and selects them in the next
/// streams of that source that offer them. GUI thread only.
class LanguageKeeper final : public QObject
{
    Q_OBJECT

public:
    /// The name of the source that what plays belongs to; empty for none.
    using PlayingSource = std::function<QString()>;

    /// None of the three is owned; they must outlive the keeper.
    LanguageKeeper(VlcPlayer *player, PlaybackSession *session, Library *library,
                   PlayingSource playingSource, QObject *parent);

private:
    void beginStream();
    void selectTracks();
    bool selectAudio(const QString &language);
    bool selectSubtitles(const QString &language);
    void noteAudio(int id);
    void noteSubtitles(int id);

    VlcPlayer *player;
    Library *library;
    PlayingSource playingSource;
    bool audioIsOpen = false; ///< the stream's is to be selected when it comes, likewise subtitles
    bool subtitlesAreOpen = false;
    bool selecting = false; ///< not by the user's hand
};

/// A language code as 639-1, 639-2 and 639-3 write it, in one form; another text in small letters.
QString canonicalLanguage(const QString &language);
