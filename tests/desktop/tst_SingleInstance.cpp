// One program per profile: over real sockets, in threads that stand for programs.

#include "desktop/SingleInstance.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <atomic>
#include <memory>

#ifndef Q_OS_WIN
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;
using Start = SingleInstance::Start;

namespace {

constexpr int shortLimitMs = 300;

/// A start of the program on a thread of its own.
class OtherStart final
{
public:
    explicit OtherStart(const QString &name, const StartRequest &request = {},
                        int limitMs = SingleInstance::defaultLimitMs)
        : thread(QThread::create([=, this] {
            SingleInstance instance(name, limitMs);
            outcome = int(instance.start(request));
        }))
    {
        thread->start();
    }
    ~OtherStart() { thread->wait(); }
    OtherStart(const OtherStart &) = delete;
    OtherStart &operator=(const OtherStart &) = delete;

    bool hasEnded() const { return outcome >= 0; }
    Start result() const { return Start(outcome.load()); }

private:
    std::atomic<int> outcome = -1;
    std::unique_ptr<QThread> thread;
};

} // namespace

class tst_SingleInstance : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void handsOver_data();
    void handsOver();
    void moreThanAMessageHolds();
    void firstAgainAfterTheEnd();
    void aCrashedFirstOne();
    void aHungFirstOne();
    void anotherProgramListens();
    void severalAtOnce();
    void brokenMessages_data();
    void brokenMessages();
    void ownerOnly();
    void nowhereToListen();
    void profilesNeverMeet();

private:
    QString name;
    int count = 0;
};

void tst_SingleInstance::init()
{
    name = profileServerName() + QString::number(++count);
    QVERIFY(!name.isEmpty());
}

void tst_SingleInstance::handsOver_data()
{
    QTest::addColumn<QStringList>("addresses");
    QTest::newRow("nothing to open") << QStringList();
    QTest::newRow("a file and an address")
        << QStringList{u"/a b/電視 ë%41.mp4"_s, u"http://127.0.0.1/x?y=1"_s};
    QTest::newRow("thousands of files") << QStringList(20'000, u"/films/"_s + QString(60, u'x'));
}

void tst_SingleInstance::handsOver()
{
    QFETCH(const QStringList, addresses);
    SingleInstance first(name);
    QList<StartRequest> requests;
    connect(&first, &SingleInstance::requested, this,
            [&requests](const StartRequest &request) { requests << request; });
    QCOMPARE(first.start({{u"/own"_s}, {}}), Start::First);
    const StartRequest request{addresses, u"token_TIME12"_s};
    const OtherStart second(name, request);
    QTRY_VERIFY(second.hasEnded());
    QCOMPARE(second.result(), Start::HandedOver);
    QTRY_COMPARE(requests.size(), 1);
    QCOMPARE(requests.constFirst(), request);
    // And the next one.
    const OtherStart third(name);
    QTRY_COMPARE(requests.size(), 2);
    QCOMPARE(requests.constLast(), StartRequest());
}

/// The first ones arrive.
void tst_SingleInstance::moreThanAMessageHolds()
{
    const QString path = u"/films/"_s + QString(120, u'x');
    const QStringList addresses(50'000, path);
    SingleInstance first(name);
    QList<StartRequest> requests;
    connect(&first, &SingleInstance::requested, this,
            [&requests](const StartRequest &request) { requests << request; });
    QCOMPARE(first.start({}), Start::First);
    const OtherStart second(name, {addresses, u"token"_s});
    QTRY_VERIFY(second.hasEnded());
    QCOMPARE(second.result(), Start::HandedOver);
    QTRY_COMPARE(requests.size(), 1);
    QCOMPARE(requests.constFirst().activationToken, u"token"_s);
    // 4 MiB of them, each with its end.
    const qsizetype most = (4 * 1024 * 1024 - 6) / (path.size() + 1);
    QVERIFY(requests.constFirst().addresses == addresses.first(most));
}

void tst_SingleInstance::firstAgainAfterTheEnd()
{
    SingleInstance ended(name);
    QCOMPARE(ended.start({}), Start::First);
    ended.close();
    SingleInstance next(name);
    QCOMPARE(next.start({}), Start::First);
}

void tst_SingleInstance::aCrashedFirstOne()
{
#ifdef Q_OS_WIN
    QSKIP("a pipe ends with its program");
#else
    // The socket of a program that was killed: its file is there, and nobody listens.
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray path = QFile::encodeName(name);
    QVERIFY(size_t(path.size()) < sizeof address.sun_path);
    std::copy(path.begin(), path.end(), address.sun_path);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    QCOMPARE(::bind(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    QCOMPARE(::listen(socket, 1), 0);
    ::close(socket);
    QVERIFY(QFileInfo::exists(name));

    QElapsedTimer timer;
    timer.start();
    SingleInstance next(name);
    QCOMPARE(next.start({}), Start::First);
    QVERIFY(timer.elapsed() < SingleInstance::defaultLimitMs);
    const OtherStart second(name);
    QTRY_VERIFY(second.hasEnded());
    QCOMPARE(second.result(), Start::HandedOver);
#endif
}

/// This thread, which does not come to its event loop, stands for the program that hangs.
void tst_SingleInstance::aHungFirstOne()
{
    SingleInstance hung(name);
    QList<StartRequest> requests;
    connect(&hung, &SingleInstance::requested, this,
            [&requests](const StartRequest &request) { requests << request; });
    QCOMPARE(hung.start({}), Start::First);
    QElapsedTimer timer;
    timer.start();
    SingleInstance second(name, shortLimitMs);
    QCOMPARE(second.start({QStringList(50'000, QString(60, u'x')), {}}), Start::Alone);
    QCOMPARE(second.start({{u"/film"_s}, {}}), Start::Alone);
    QVERIFY(timer.elapsed() < 25LL * shortLimitMs);
    // It has taken nothing from the first one, which answers again later, and has left it nothing.
    const StartRequest request{{u"/other"_s}, {}};
    const OtherStart third(name, request);
    QTRY_VERIFY(third.hasEnded());
    QCOMPARE(third.result(), Start::HandedOver);
    QTRY_COMPARE(requests, QList<StartRequest>{request});
}

/// One that answers with something else.
void tst_SingleInstance::anotherProgramListens()
{
    QLocalServer other;
    connect(&other, &QLocalServer::newConnection, this, [&other] {
        QLocalSocket *socket = other.nextPendingConnection();
        socket->write("HTTP/1.1 400 Bad Request\r\n");
    });
    QVERIFY(other.listen(name));
    const OtherStart start(name, {{u"/film"_s}, {}});
    QTRY_VERIFY(start.hasEnded());
    QCOMPARE(start.result(), Start::Alone);
    QVERIFY(other.isListening());
}

void tst_SingleInstance::severalAtOnce()
{
    std::atomic<int> firsts = 0;
    std::atomic<int> ended = 0;
    constexpr int programs = 8;
    std::vector<std::unique_ptr<QThread>> threads;
    for (int number = 0; number < programs; ++number) {
        threads.emplace_back(QThread::create([&] {
            SingleInstance instance(name);
            const bool isFirst = instance.start({}) == Start::First;
            firsts += isFirst ? 1 : 0;
            ++ended;
            while (isFirst && ended < programs) {
                QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            }
        }));
        threads.back()->start();
    }
    for (const auto &thread : threads) {
        QTRY_VERIFY(thread->isFinished());
    }
    QCOMPARE(firsts, 1);
}

void tst_SingleInstance::brokenMessages_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("too large") << "\x7f\xff\xff\xff"_ba + QByteArray(100'000, 'x');
    QTest::newRow("cut short") << "\0\0\0\x10/film"_ba;
    QTest::newRow("nothing") << QByteArray();
}

/// Such a peer is dropped and nothing comes of it.
void tst_SingleInstance::brokenMessages()
{
    QFETCH(const QByteArray, bytes);
    constexpr int limitMs = 1500; // enough for the good message on a busy machine
    SingleInstance first(name, limitMs);
    const QSignalSpy requests(&first, &SingleInstance::requested);
    QCOMPARE(first.start({}), Start::First);
    QLocalSocket peer;
    peer.connectToServer(name);
    peer.write(bytes);
    QTRY_COMPARE_WITH_TIMEOUT(peer.state(), QLocalSocket::UnconnectedState, 20000);
    QCOMPARE(peer.bytesAvailable(), 0);
    QCOMPARE(requests.size(), 0);
    const OtherStart second(name);
    QTRY_COMPARE(requests.size(), 1);
}

void tst_SingleInstance::ownerOnly()
{
#ifdef Q_OS_WIN
    QSKIP("the pipe's access list says so, which Wine does not keep");
#else
    SingleInstance first(name);
    QCOMPARE(first.start({}), Start::First);
    constexpr QFileDevice::Permissions others = QFileDevice::ReadGroup | QFileDevice::WriteGroup |
                                                QFileDevice::ExeGroup | QFileDevice::ReadOther |
                                                QFileDevice::WriteOther | QFileDevice::ExeOther;
    QCOMPARE(QFileInfo(name).permissions() & others, QFileDevice::Permissions());
#endif
}

void tst_SingleInstance::nowhereToListen()
{
    QCOMPARE(SingleInstance({}).start({}), Start::Alone);
#ifndef Q_OS_WIN
    QCOMPARE(SingleInstance(u"/proc/self/nowhere"_s, shortLimitMs).start({}), Start::Alone);
    // Longer than a socket's name may be.
    const QString deep = PrivateProfile::current().root() + u'/' + QString(120, u'x');
    QCOMPARE(SingleInstance(deep, shortLimitMs).start({}), Start::Alone);
#endif
}

void tst_SingleInstance::profilesNeverMeet()
{
#ifdef Q_OS_WIN
    QSKIP("a user has one profile");
#else
    const QString here = profileServerName();
    QCOMPARE(profileServerName(), here);
    QCOMPARE(QFileInfo(here).path(), qEnvironmentVariable("XDG_RUNTIME_DIR"));
    const QByteArray data = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", data + "-other");
    QVERIFY(profileServerName() != here);
    qputenv("XDG_DATA_HOME", data);
    const QString root = PrivateProfile::current().root();
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, root + u"/other"_s);
    QVERIFY(profileServerName() != here);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, root + u"/config"_s);
    QCOMPARE(profileServerName(), here);
    // Without a folder for it, where the data are; never where others can write.
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    qunsetenv("XDG_RUNTIME_DIR");
    QCOMPARE(QFileInfo(profileServerName()).path(), PrivateProfile::current().appDataDir());
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(root + u"/none"_s));
    QCOMPARE(QFileInfo(profileServerName()).path(), PrivateProfile::current().appDataDir());
    qunsetenv("XDG_RUNTIME_DIR");
    // Nor where there is no place at all.
    const QString file = root + u"/file"_s;
    writeFile(file, "x");
    qputenv("XDG_DATA_HOME", QFile::encodeName(file));
    QCOMPARE(profileServerName(), QString());
    qputenv("XDG_DATA_HOME", data);
    qputenv("XDG_RUNTIME_DIR", runtime);
    QCOMPARE(profileServerName(), here);
#endif
}

VANTIRO_TEST_GUILESS_MAIN(tst_SingleInstance)
#include "tst_SingleInstance.moc"
