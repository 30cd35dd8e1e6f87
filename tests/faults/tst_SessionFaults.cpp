// A channel and a film under each fault that providers have, on real players side by side: a
// channel is reconnected, a film is given up, and both play as soon as the provider works.

#include "fakeprovider/Streams.h"
#include "faults/GuiLoad.h"
#include "player/MediaPlayer.h"
#include "player/VlcPlayer.h"
#include "providers/FaultyProvider.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"
#include "ui/PlaybackSession.h"

#include <QElapsedTimer>
#include <QTimer>

#include <atomic>
#include <memory>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;
using State = PlaybackSession::State;

namespace {

constexpr int openMs = 60'000;

/// What the session makes of a stream.
enum class Course
{
    Plays,
    IsInterrupted, ///< a channel is reconnected, a film fails
    EndsAtOnce,    ///< a channel is reconnected, a film has come to its end
    NeverStarts    ///< the user waits
};

struct StreamFault
{
    Fault fault;
    Course course;
};

/// The reply breaks off or stalls after so many bytes; later requests are refused.
Fault brokenStream(const char *name, HttpReply (*broken)(HttpReply, qint64))
{
    constexpr qint64 firstSeconds = 150'000;
    const auto requests = std::make_shared<std::atomic<int>>(0);
    const auto reply = [=](const HttpRequest &, const HttpReply &good) {
        return (*requests)++ == 0 ? broken(good, firstSeconds) : statusReply(503);
    };
    return {name, Fault::Outcome::Fails, Fault::Transport::Plain, reply};
}

Course courseUnder(const Fault &fault)
{
    switch (fault.outcome) {
    case Fault::Outcome::Works:
        return Course::Plays;
    case Fault::Outcome::Fails:
        // Only these have a timeout of their own. A stream that has not begun is not judged.
        return fault.timeoutMs < Fault::patientMs ? Course::NeverStarts : Course::IsInterrupted;
    case Fault::Outcome::WrongBody:
    case Fault::Outcome::LargeBody:
        break;
    }
    return Course::EndsAtOnce;
}

const QList<StreamFault> &streamFaults()
{
    static const QList<StreamFault> all = [] {
        // libVLC reads a body as it comes, and follows a redirect to a file (see SECURITY.md).
        const QList<QByteArray> others{"shorter than announced", "longer than announced",
                                       "not packed as announced", "100 MB of zeros, packed",
                                       "302 to a file"};
        QList<StreamFault> faults;
        for (const Fault &fault : FaultyProvider::faults()) {
            if (!others.contains(fault.name)) {
                faults.append({fault, courseUnder(fault)});
            }
        }
        faults.append({brokenStream("hangs up in the middle", cutShort), Course::IsInterrupted});
        faults.append({brokenStream("silent in the middle", stalling), Course::IsInterrupted});
        return faults;
    }();
    return all;
}

/// One player with its provider, which has a fault until the session has done what it must.
class Viewer
{
public:
    Viewer(StreamFault streamFault, qint32 streamKind)
        : tried(std::move(streamFault))
        , kind(streamKind)
        , provider(tried.fault)
    {
        const auto *source = player.findChild<MediaPlayer *>();
        QObject::connect(source, &MediaPlayer::ended, &context, [this] { ++ends; });
        QObject::connect(&player, &VlcPlayer::playbackProgressing, &context,
                         [this] { ++progress; });
        QObject::connect(&session, &PlaybackSession::reconnectScheduled, &context,
                         [this](int attempt) { attempts << attempt; });
        QObject::connect(&session, &PlaybackSession::failed, &context,
                         [this](const QString &message) { failures << message; });
        // libVLC does not trust the test's authority: a good stream comes without TLS.
        front.on(u"/stream"_s, [this](const HttpRequest &) {
            ++requests;
            return isFaulty ? HttpReply::redirect(provider.url(path())) : goodStream();
        });
        QObject::connect(&check, &QTimer::timeout, &context, [this] {
            if (isThrough()) {
                check.stop();
                mend();
            }
        });
    }

    void begin()
    {
        provider.begin();
        session.play(kind, front.url(u"/stream"_s), u"Stream"_s);
        sinceBegin.start();
        constexpr int checkMs = 50;
        check.start(checkMs);
    }

    /// What the session did so far.
    QString course() const
    {
        return u"attempts %1, failures '%2', ends %3, progress %4"_s.arg(attempts.size())
            .arg(failures.join(u';'))
            .arg(ends)
            .arg(progress);
    }

    bool playsAgain() const
    {
        return !isFaulty && progress > 1 && session.state() == State::Playing;
    }
    bool isLive() const { return kind == StreamKind::Live; }
    bool isReconnected() const
    {
        return isLive() &&
               (tried.course == Course::IsInterrupted || tried.course == Course::EndsAtOnce);
    }
    bool isGivenUp() const { return !isLive() && tried.course == Course::IsInterrupted; }

    StreamFault tried;
    qint32 kind;
    QList<int> attempts;
    QStringList failures;
    int ends = 0;
    int progress = 0;
    std::atomic<int> requests = 0;

private:
    /// Whether the session has done what it must under the fault.
    bool isThrough() const
    {
        if (isReconnected()) {
            return attempts.size() > 1;
        }
        if (isGivenUp()) {
            return !failures.isEmpty();
        }
        switch (tried.course) {
        case Course::Plays:
            return progress > 1;
        case Course::EndsAtOnce:
            return ends > 0;
        default:
            // Longer than a stream that has begun may stall.
            return requests > 0 && sinceBegin.hasExpired(stallMs + 1000);
        }
    }

    void mend()
    {
        isFaulty = false;
        progress = 0;
        // A channel comes back by itself.
        if (!isReconnected()) {
            session.replay();
        }
    }

    QString path() const { return isLive() ? u"/channel.ts"_s : u"/film.mp4"_s; }
    HttpReply goodStream() const
    {
        return isLive() ? liveTs() : HttpReply::file(streamPath(u"film-faststart.mp4"_s));
    }

    static constexpr int stallMs = 15'000;

    std::atomic<bool> isFaulty = true;
    QTimer check;
    QElapsedTimer sinceBegin;
    FaultyProvider provider;
    HttpServer front;
    VlcPlayer player{nullptr, nullptr};
    QObject context;

public:
    PlaybackSession session{&player, nullptr};
};

} // namespace

class tst_SessionFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void eachFault_data();
    void eachFault();
    void theWindowAnswered();

private:
    std::vector<std::unique_ptr<Viewer>> viewers;
    std::unique_ptr<GuiLoad> load;
};

/// All begin at the same time; most of the time is spent on waiting.
void tst_SessionFaults::initTestCase()
{
    // libVLC must not open a window of its own, nor draw into the terminal.
    qunsetenv("DISPLAY");
    qunsetenv("WAYLAND_DISPLAY");
    qputenv("CACA_DRIVER", "null");
    for (const StreamFault &fault : streamFaults()) {
        for (const qint32 kind : {StreamKind::Live, StreamKind::Movie}) {
            viewers.push_back(std::make_unique<Viewer>(fault, kind));
        }
    }
    load = std::make_unique<GuiLoad>();
    for (const auto &viewer : viewers) {
        viewer->begin();
    }
}

void tst_SessionFaults::eachFault_data()
{
    QTest::addColumn<int>("index");
    for (std::size_t index = 0; index < viewers.size(); ++index) {
        const Viewer &viewer = *viewers.at(index);
        QTest::addRow("%s: %s", viewer.isLive() ? "channel" : "film", viewer.tried.fault.name)
            << static_cast<int>(index);
    }
}

void tst_SessionFaults::eachFault()
{
    QFETCH(const int, index);
    Viewer &viewer = *viewers.at(static_cast<std::size_t>(index));
    QVERIFY2(QTest::qWaitFor([&] { return viewer.playsAgain(); }, openMs),
             qPrintable(viewer.course()));
    QCOMPARE(viewer.attempts.mid(0, 2), viewer.isReconnected() ? QList<int>({1, 2}) : QList<int>());
    QCOMPARE(viewer.failures.size(), viewer.isGivenUp() ? 1 : 0);
    viewer.session.stop();
}

void tst_SessionFaults::theWindowAnswered()
{
    const double longestMs = load->longestMs();
    QVERIFY2(longestMs < 100 * slowness, qPrintable(QString::number(longestMs)));
}

VANTIRO_TEST_GUILESS_MAIN(tst_SessionFaults)
#include "tst_SessionFaults.moc"
