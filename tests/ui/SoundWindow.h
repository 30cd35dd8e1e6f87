#pragma once

#include "WindowFixture.h"

/// Answers every request with ten seconds of sound.
struct SoundServer
{
    SoundServer();
    HttpServer server;
};

/// An open window whose active source is an account without entries. Its streams have sound but no
/// picture.
class SoundWindow final : private SoundServer, public WindowFixture
{
public:
    SoundWindow();

    /// Plays an entry of that kind, and waits until it runs and its length is known.
    void play(qint32 kind);
    /// Watches the position for more than a second; whether it moves on by itself from where it
    /// was, without a seek.
    [[nodiscard]] bool playsOnFrom(qint64 ms) const;
};
