#include "SoundWindow.h"

#include "fakeprovider/Streams.h"
#include "player/VlcPlayer.h"
#include "ui/MainWindow.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

SoundServer::SoundServer()
{
    server.onPrefix(u"/"_s, [](const HttpRequest &) {
        return HttpReply::file(streamPath(u"audio.mp3"_s), "audio/mpeg"_ba);
    });
}

SoundWindow::SoundWindow()
{
    SourceConfig source = accountSource(u"A"_s, server.url());
    source.liveExtension = u"mp3"_s;
    store(source);
    for (const QString &section : {u"live"_s, u"movie"_s, u"series"_s}) {
        CatalogCache::save(u"A"_s, section, {});
    }
    open();
}

void SoundWindow::play(qint32 kind)
{
    MediaItem item = entry(kind, u"Sound"_s);
    item.containerExtension = u"mp3"_s;
    window().playMediaItem(item);
    QTRY_VERIFY_WITH_TIMEOUT(player().isPlaying() && player().timeMs() > 0, 10000);
    QTRY_VERIFY(player().lengthMs() > 9000);
}

bool SoundWindow::playsOnFrom(qint64 ms) const
{
    constexpr qint64 mostMs = 4000;
    const QSignalSpy positions(&player(), &VlcPlayer::positionChanged);
    return QTest::qWaitFor([&positions] { return positions.count() >= 3; }) &&
           player().timeMs() >= ms && player().timeMs() < ms + mostMs;
}
