#pragma once

#include "fakeprovider/HttpServer.h"

#include <QString>

/// The path of a stream that the build made (CMake: vantiro_add_test(... STREAMS)):
///
/// live.ts            180 s, constant bit rate
/// short.ts           5 s
/// grey.ts            30 s, without colour
/// before.ts          6 s, and what may follow it for 12 s: codec.ts (MPEG-2), larger.ts (640x360),
///                    two-tracks.ts (sound), hour-later.ts (its clock)
/// wrap.ts            12 s, whose clock wraps after 5 s
/// film.mp4           60 s, its index at the end; film-faststart.mp4 with the index in front
/// hls/index.m3u8     30 s in segments of 2 s
/// tracks.mkv         20 s, 30000/1001 pictures a second, sound eng and deu, subtitles eng and fra
/// silent.mp4         10 s without sound
/// audio.mp3          10 s without a picture
/// subtitles.srt      one large text from the first to the twentieth second
QString streamPath(const QString &name);

/// A channel: a transport stream of so many seconds at its own pace, over and over. Every
/// connection starts at its beginning, the first `burstSeconds` at once. 404 when the file cannot
/// be read.
HttpReply liveClip(const QString &path, int seconds, int burstSeconds = 0);
/// The channel of live.ts.
HttpReply liveTs();

/// A transport stream of any length, for a player to move in: a clip of constant rate over and
/// over, with a clock that runs on. 404 when the file cannot be read.
HttpReply archivedClip(const QString &path, qint64 seconds);

/// Serves a live HLS channel at `prefix` + "/index.m3u8": a window of four segments that moves on
/// with the clock from this call on. Segments that left the window are answered with 404.
void serveLiveHls(HttpServer &server, const QString &prefix);
