#pragma once

#include <QString>

/// Makes the demo's streams that the folder lacks, with ffmpeg: test cards with the name, a running
/// clock and a tone. Takes about half a minute the first time. False, with a message on standard
/// error, when ffmpeg is missing or fails.
bool makeDemoStreams(const QString &folder);
