#include "PanelFixture.h"

#include "fakeprovider/Streams.h"
#include "support/HttpReplies.h"

#include <QBoxLayout>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QSignalSpy>
#include <QWindow>

namespace {

constexpr int openMs = 20000;

/// Puts the panel below another widget that can have the focus.
QWidget *placed(PlayerPanel &panel, QMainWindow &window)
{
    auto *central = new QWidget;
    auto *layout = new QVBoxLayout(central);
    layout->addWidget(new QLineEdit);
    layout->addWidget(&panel);
    window.setCentralWidget(central);
    return panel.surface();
}

} // namespace

PanelFixture::PanelFixture()
    : player(placed(panel, window), nullptr)
    , session(&player, nullptr)
{
    server.onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
    server.on(u"/sound"_s, [](const HttpRequest &) {
        return HttpReply::file(streamPath(u"audio.mp3"_s), "audio/mpeg"_ba);
    });
    panel.setPlayback(&player, &session);
    window.show();
    if (!QTest::qWaitForWindowActive(&window)) {
        qFatal("PanelFixture: the window does not become active");
    }
    panel.setFocus();
}

void PanelFixture::play(qint32 kind, const QString &title)
{
    session.play(kind, server.url(u"/silence"_s), title);
}

void PanelFixture::playSound(qint32 kind)
{
    session.play(kind, server.url(u"/sound"_s), u"Sound"_s);
    QTRY_VERIFY_WITH_TIMEOUT(player.isPlaying() && player.timeMs() > 0, openMs);
    QTRY_VERIFY_WITH_TIMEOUT(player.lengthMs() > 9000, openMs);
}

void PanelFixture::playSoundFromItsMiddle(qint32 kind)
{
    playSound(kind);
    player.seek(5000);
    QTRY_VERIFY_WITH_TIMEOUT(player.timeMs() > 4000, openMs);
}

bool PanelFixture::playsOnFrom(qint64 ms) const
{
    constexpr qint64 mostMs = 2500; // less than any seek
    QElapsedTimer clock;
    clock.start();
    const QSignalSpy positions(&player, &VlcPlayer::positionChanged);
    return QTest::qWaitFor([&positions] { return positions.count() >= 3; }, openMs) &&
           player.timeMs() >= ms && player.timeMs() < ms + clock.elapsed() + mostMs;
}

QPushButton &PanelFixture::button(const QString &text) const
{
    for (QPushButton *button : window.findChildren<QPushButton *>()) {
        if (button->text() == text) {
            return *button;
        }
    }
    qFatal("PanelFixture: no button \"%s\"", qUtf8Printable(text));
}

QString PanelFixture::shownRows() const
{
    QStringList shown;
    for (const QWidget *row : panel.rows()) {
        if (row->isVisible()) {
            shown << row->objectName();
        }
    }
    return shown.join(u' ');
}

void PanelFixture::pressKey(Qt::Key key) const
{
    QTest::keyClick(window.windowHandle(), key);
}
