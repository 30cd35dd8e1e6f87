#pragma once

#include "fakeprovider/HttpServer.h"

#include <QString>

/// The path of a stream that the build made (CMake: vantiro_add_test(... STREAMS)):
///
/// live.ts            180 s, constant bit rate
/// short.ts           5 s
/// film.mp4           60 s, its index at the end; film-faststart.mp4 with the index in front
/// hls/index.m3u8     30 s in segments of 2 s
/// tracks.mkv         20 s, 30000/1001 pictures a second, sound eng and deu, subtitles eng and fra
/// silent.mp4         10 s without sound
/// audio.mp3          10 s without a picture
/// subtitles.srt      one large text from the first to the twentieth second
QString streamPath(const QString &name);

/// A channel: live.ts at its own pace, without an end (it begins anew after 180 s). Every
/// connection starts at the beginning.
HttpReply liveTs();

/// Serves a live HLS channel at `prefix` + "/index.m3u8": a window of four segments that moves on
/// with the clock from this call on. Segments that left the window are answered with 404.
void serveLiveHls(HttpServer &server, const QString &prefix);
