// The program on Windows, driven as a user does: windows are found and input is given through
// Windows itself, and pixels are read from the screen. The program is as the packages install it
// and finds no plugins of Qt but theirs, and the one that finds its controls for this test
// (ControlFinder.cpp).

#include "e2e/StoredSources.h"
#include "fakeprovider/PosterArt.h"
#include "fakeprovider/Streams.h"
#include "model/CatalogCache.h"
#include "model/SourceManager.h"
#include "support/TestMain.h"
#include "support/desktop/Screen.h"
#include "windows/NativeWindow.h"

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QLocalSocket>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace desktop;
using NativeKeyboard::Key;

namespace {

constexpr int startMs = 60000;

const QString mainTitle = u"Vantiro Player"_s;

QByteArray playlist(const HttpServer &server)
{
    QByteArray text = "#EXTM3U\n";
    for (const QString &name : {u"Alpha"_s, u"Beta"_s, u"Gamma"_s}) {
        text += "#EXTINF:-1 group-title=\"Test\"," + name.toUtf8() + '\n' +
                server.url(u"/%1.ts"_s.arg(name.toLower())).toUtf8() + '\n';
    }
    return text;
}

void keepScreenshot(const QString &name)
{
    Screen::save(Screen::grab(), name);
}

/// How many of the stored posters hold these bytes. A file that is still written has another name
/// and is left alone: Windows renames no file that is open.
int postersWith(const QByteArray &bytes)
{
    int count = 0;
    QDirIterator files(PrivateProfile::current().appDataDir(), {u"*.img"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (file.open(QIODevice::ReadOnly) && file.readAll() == bytes)
            ++count;
    }
    return count;
}

QByteArray asWebp(const QByteArray &picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    constexpr int lossless = 100;
    QImage::fromData(picture).save(&buffer, "WEBP", lossless);
    return bytes;
}

/// The share of pixels of exactly that colour.
double shareOf(const QColor &color, const QRect &place)
{
    return Screen::share(Screen::grab(place),
                         [&color](QRgb pixel) { return pixel == color.rgb(); });
}

bool screenShows(const QColor &color)
{
    constexpr double wantedPixels = 1000;
    const QRect screen = Screen::area();
    return shareOf(color, screen) * screen.width() * screen.height() >= wantedPixels;
}

} // namespace

class tst_Program : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void addsAPlaylistAndPlaysFromIt();
    void showsPostersAndPlaysAFilm();
    void aLaterStartHandsOver();

private:
    bool start();
    bool closeWindow();
    void checkStoredPlaylist(const QString &url);
    void checkFullscreen();
    QRect find(const QString &control, const QString &entry = {});
    bool click(const QString &control, const QString &entry = {});

    QProcess player;
    QLocalSocket controls;
    QString controlsName;
    int runs = 0;
    std::optional<NativeWindow> window;
};

void tst_Program::init()
{
    PrivateProfile::current().clear();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"VANTIRO_NET_DEBUG"_s, u"1"_s);
    environment.remove(u"QT_PLUGIN_PATH"_s);
    environment.insert(u"QT_QPA_GENERIC_PLUGINS"_s, u"controlfinder"_s);
    controlsName = u"vantiro-%1-%2"_s.arg(QCoreApplication::applicationPid()).arg(++runs);
    environment.insert(u"VANTIRO_TEST_CONTROLS"_s, controlsName);
    player.setProcessEnvironment(environment);
    player.setProcessChannelMode(QProcess::ForwardedChannels);
}

void tst_Program::cleanup()
{
    if (QTest::currentTestFailed())
        keepScreenshot(u"failed-"_s + QString::fromLatin1(QTest::currentTestFunction()));
    controls.abort();
    if (player.state() != QProcess::NotRunning) {
        player.kill();
        player.waitForFinished();
    }
}

bool tst_Program::start()
{
    player.start(QStringLiteral(VANTIRO_PLAYER), {});
    if (!player.waitForStarted())
        return false;
    window = NativeWindow::waitFor(player.processId(), mainTitle, startMs);
    controls.connectToServer(controlsName);
    return window.has_value() && controls.waitForConnected();
}

bool tst_Program::closeWindow()
{
    window->close();
    return player.waitForFinished() && player.exitStatus() == QProcess::NormalExit &&
           player.exitCode() == 0;
}

/// The registry key and the cache file are in the usual places of Windows.
void tst_Program::checkStoredPlaylist(const QString &url)
{
    // Read once: the registry has no sources while the player writes them again.
    QList<SourceConfig> sources;
    const auto isStored = [&sources] {
        sources = SourceManager(nullptr).sources();
        return sources.size() == 1;
    };
    QTRY_VERIFY_WITH_TIMEOUT(isStored(), startMs);
    const SourceConfig &source = sources.constFirst();
    QCOMPARE(source.name, u"Home"_s);
    QCOMPARE(source.url, url);
    const QSettings registry(u"HKEY_CURRENT_USER\\Software\\Vantiro\\Player"_s,
                             QSettings::NativeFormat);
    QVERIFY(!registry.allKeys().isEmpty());

    const QString folder = PrivateProfile::current().appDataDir();
    QVERIFY2(folder.endsWith("/AppData/Roaming/Vantiro/Vantiro Player"_L1), qPrintable(folder));
    CatalogCache::Section section;
    QTRY_VERIFY_WITH_TIMEOUT(CatalogCache::load(source.name, u"channel"_s, section), startMs);
    QCOMPARE(section.items.size(), 3);
}

/// The place of a control, or of an entry in it, on the screen; empty while it is not visible.
QRect tst_Program::find(const QString &control, const QString &entry)
{
    controls.write((control + u'\t' + entry + u'\n').toUtf8());
    const bool answered = QTest::qWaitFor([this] { return controls.canReadLine(); }, startMs);
    const QList<QByteArray> numbers =
        answered ? controls.readLine().trimmed().split(' ') : QList<QByteArray>();
    return numbers.size() == 4 ? QRect(numbers[0].toInt(), numbers[1].toInt(), numbers[2].toInt(),
                                       numbers[3].toInt())
                               : QRect();
}

/// Clicks into the control, or on an entry of it, as soon as it is visible.
bool tst_Program::click(const QString &control, const QString &entry)
{
    QRect place;
    const auto isVisible = [&] {
        place = find(control, entry);
        return !place.isEmpty();
    };
    if (!QTest::qWaitFor(isVisible, startMs))
        return false;
    NativeMouse::click(place.center());
    return true;
}

/// The picture fills the screen, the controls lie over it on black, and keys reach the program
/// although libVLC draws there.
void tst_Program::checkFullscreen()
{
    const QRect screen = Screen::area();
    NativeKeyboard::press(Key::F);
    QTRY_COMPARE_WITH_TIMEOUT(window->clientRect(), screen, startMs);
    // The stream has the shape of the screen, so the picture reaches every edge.
    QRect corner(screen.topLeft(), QSize(200, 60));
    QTRY_VERIFY_WITH_TIMEOUT(!Screen::isMostlyBlack(corner), startMs);
    corner.moveBottomRight(screen.bottomRight());
    QTRY_VERIFY_WITH_TIMEOUT(!Screen::isMostlyBlack(corner), startMs);
    QVERIFY(Screen::waitUntilMoving(screen));

    // They go again three seconds after the last movement.
    const auto controlsShow = [this, moves = 0]() mutable {
        NativeMouse::moveTo(QPoint(300 + 20 * (++moves % 2), 300));
        const QRect chrome = find(u"fullscreenChrome"_s);
        return !chrome.isEmpty() && shareOf(Qt::black, chrome) > 0.4;
    };
    QVERIFY(QTest::qWaitFor(controlsShow, startMs));
    keepScreenshot(u"fullscreen"_s);

    NativeKeyboard::press(Key::Escape);
    QTRY_VERIFY_WITH_TIMEOUT(window->clientRect().width() < screen.width(), startMs);
    QVERIFY(Screen::waitUntilMoving(find(u"videoSurface"_s)));
}

void tst_Program::addsAPlaylistAndPlaysFromIt()
{
    HttpServer server;
    HttpReply list;
    list.body = playlist(server);
    server.on(u"/list.m3u"_s, list);
    server.on(u"/beta.ts"_s, liveClip(streamPath(u"grey.ts"_s), 30, 2));

    QVERIFY(start());
    const auto dialog = NativeWindow::waitFor(player.processId(), u"Add Source"_s);
    QVERIFY(dialog);
    QTRY_VERIFY_WITH_TIMEOUT(dialog->isInFront(), startMs);
    NativeKeyboard::type(u"M"_s); // selects the type in the focused combo box
    NativeKeyboard::press(Key::Tab);
    NativeKeyboard::selectAll();
    NativeKeyboard::type(u"Home"_s);
    NativeKeyboard::press(Key::Tab);
    NativeKeyboard::type(server.url(u"/list.m3u"_s));
    NativeKeyboard::press(Key::Return);
    QVERIFY(dialog->waitUntilGone());

    checkStoredPlaylist(server.url(u"/list.m3u"_s));

    QVERIFY(click(u"channelAllSearch"_s));
    NativeKeyboard::type(u"beta"_s);
    keepScreenshot(u"search"_s);
    QVERIFY(click(u"channelTable"_s, u"Beta"_s));
    QTRY_VERIFY_WITH_TIMEOUT(server.requestCount(u"/beta.ts"_s) > 0, startMs);
    QCOMPARE(server.requestCount(u"/alpha.ts"_s), 0);
    QVERIFY(Screen::waitUntilMoving(find(u"videoSurface"_s)));
    keepScreenshot(u"channel"_s);
    checkFullscreen();
    QVERIFY(closeWindow());
}

void tst_Program::showsPostersAndPlaysAFilm()
{
    XtreamProvider provider;
    const QColor accent = posterAccent(3);
    const QByteArray poster = asWebp(paintPoster(u"Orbit"_s, u"A film"_s, 3));
    QVERIFY(poster.contains("WEBP"));
    HttpReply posterReply;
    posterReply.contentType = "image/webp"_ba;
    posterReply.body = poster;
    provider.http().on(u"/orbit.webp"_s, posterReply);
    XtreamEntry orbit;
    orbit.name = u"Orbit"_s;
    orbit.poster = provider.http().url(u"/orbit.webp"_s);
    const QString film = provider.add(XtreamAction::vodStreams, orbit);
    provider.setNames(XtreamAction::vodCategories, {u"Test"_s});
    storeAccount(provider);

    QVERIFY(start());
    QTRY_VERIFY_WITH_TIMEOUT(postersWith(poster) == 1, startMs);
    QVERIFY(!screenShows(accent));
    QVERIFY(click(u"tabs"_s, u"Movies"_s));
    QVERIFY(click(u"movieCategoryList"_s, u"All Categories"_s));
    QTRY_VERIFY_WITH_TIMEOUT(screenShows(accent), startMs);
    keepScreenshot(u"posters"_s);
    QVERIFY(click(u"moviePosterList"_s, u"Orbit"_s));
    QTRY_VERIFY_WITH_TIMEOUT(provider.http().requestCount(film) > 0, startMs);
    QVERIFY(Screen::waitUntilMoving(find(u"videoSurface"_s)));
    keepScreenshot(u"film"_s);
    QVERIFY(closeWindow());
}

/// As Explorer opens a file while the program runs.
void tst_Program::aLaterStartHandsOver()
{
    HttpServer server;
    HttpReply list;
    list.body = "#EXTM3U\n#EXTINF:-1,News\nhttp://127.0.0.1:9/news.ts\n"_ba;
    server.on(u"/list.m3u"_s, list);
    SourceConfig source;
    source.name = u"Home"_s;
    source.url = server.url(u"/list.m3u"_s);
    SourceManager(nullptr).saveSource(source);
    const QTemporaryDir folder;
    const QString name = u"Der  Film ë %41.mp4"_s;
    QVERIFY(QFile::copy(streamPath(u"film-faststart.mp4"_s), folder.filePath(name)));

    QVERIFY(start());
    QProcess later;
    QProcessEnvironment environment = player.processEnvironment();
    environment.remove(u"QT_QPA_GENERIC_PLUGINS"_s);
    later.setProcessEnvironment(environment);
    later.setProcessChannelMode(QProcess::ForwardedChannels);
    later.setWorkingDirectory(folder.path());
    later.start(QStringLiteral(VANTIRO_PLAYER), {name});
    QTRY_COMPARE_WITH_TIMEOUT(later.state(), QProcess::NotRunning, startMs);
    QCOMPARE(later.exitStatus(), QProcess::NormalExit);
    QCOMPARE(later.exitCode(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(!find(u"seekRow"_s).isEmpty(), startMs);
    QVERIFY(Screen::waitUntilMoving(find(u"videoSurface"_s)));
    keepScreenshot(u"opened"_s);
    QVERIFY(closeWindow());
}

VANTIRO_TEST_MAIN(tst_Program)
#include "tst_Program.moc"
