#include "desktop/SingleInstance.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QLockFile>
#include <QSettings>
#include <QStandardPaths>
#include <QThread>
#include <QTimer>
#include <QtEndian>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

#include <memory>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// A message is its size in four bytes, the most significant first, and so many bytes of UTF-8:
/// texts that end in a null, the first one the token, the others addresses. The answer is one byte,
/// which is sent back: a start that has waited too long opens its addresses by itself, and is gone.
constexpr qsizetype sizeBytes = 4;
/// More than a command line can hold.
constexpr qsizetype maxMessageBytes = 4LL * 1024 * 1024;
constexpr char takenByte = '+';
constexpr unsigned long lockRetryMs = 20;

QByteArray messageOf(const StartRequest &request)
{
    QByteArray text = request.activationToken.toUtf8() + '\0';
    for (const QString &address : request.addresses) {
        const QByteArray next = address.toUtf8() + '\0';
        if (text.size() + next.size() > maxMessageBytes) {
            break;
        }
        text += next;
    }
    QByteArray size(sizeBytes, Qt::Uninitialized);
    qToBigEndian(quint32(text.size()), size.data());
    return size + text;
}

StartRequest requestOf(const QByteArray &text)
{
    QStringList texts = QString::fromUtf8(text).split(QChar::Null);
    texts.removeLast(); // what follows the last null
    StartRequest request;
    if (!texts.isEmpty()) {
        request.activationToken = texts.takeFirst();
    }
    request.addresses = texts;
    return request;
}

/// Nothing until all of it is there. A message that is too long ends the connection.
std::optional<StartRequest> readRequest(QLocalSocket &socket)
{
    const QByteArray size = socket.peek(sizeBytes);
    if (size.size() < sizeBytes) {
        return std::nullopt;
    }
    const auto textBytes = qsizetype(qFromBigEndian<quint32>(size.constData()));
    if (textBytes > maxMessageBytes) {
        socket.abort();
        return std::nullopt;
    }
    if (socket.bytesAvailable() < sizeBytes + textBytes) {
        return std::nullopt;
    }
    return requestOf(socket.read(sizeBytes + textBytes).mid(sizeBytes));
}

QString lockPath(const QString &serverName)
{
    // An absolute path stays as it is.
    return QDir::temp().filePath(serverName) + ".lock"_L1;
}

/// Lets the program that runs take the foreground, which this one has from its user.
void yieldForeground()
{
#ifdef Q_OS_WIN
    AllowSetForegroundWindow(ASFW_ANY);
#endif
}

} // namespace

QString profileServerName()
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    const QString profile = QSettings(u"Vantiro"_s, u"Player"_s).fileName() + u'\n' + data;
    const QByteArray hash =
        QCryptographicHash::hash(profile.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    const QString name = "vantiro-player-"_L1 + QLatin1StringView(hash);
#ifdef Q_OS_WIN
    return name;
#else
    // Both belong to the user alone, so that nobody else can take the name.
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const bool hasRuntime = QDir::isAbsolutePath(runtime) && QFileInfo(runtime).isDir();
    if (!hasRuntime && !QDir().mkpath(data)) {
        return {};
    }
    return (hasRuntime ? runtime : data) + u'/' + name;
#endif
}

SingleInstance::SingleInstance(QString name, int timeLimitMs, QObject *parent)
    : QObject(parent)
    , serverName(std::move(name))
    , limitMs(timeLimitMs)
{
    server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket *socket = server.nextPendingConnection()) {
            receive(socket);
        }
    });
}

SingleInstance::Start SingleInstance::start(const StartRequest &request)
{
    if (serverName.isEmpty()) {
        return Start::Alone;
    }
    // Of several that start at once, one listens, and the others hand over to it.
    QLockFile lock(lockPath(serverName));
    const QDeadlineTimer deadline(limitMs);
    Answer answer = handOver(request);
    while (answer == Answer::NobodyListens && !deadline.hasExpired()) {
        const bool isLocked = lock.tryLock(0);
        answer = handOver(request);
        if (answer == Answer::NobodyListens && isLocked) {
            return listen() ? Start::First : Start::Alone;
        }
        if (answer == Answer::NobodyListens) {
            if (lock.error() != QLockFile::LockFailedError) {
                return Start::Alone; // nothing can be made there
            }
            QThread::msleep(lockRetryMs);
        }
    }
    return answer == Answer::Taken ? Start::HandedOver : Start::Alone;
}

void SingleInstance::close()
{
    server.close();
}

SingleInstance::Answer SingleInstance::handOver(const StartRequest &request) const
{
    const QDeadlineTimer deadline(limitMs);
    const auto left = [&deadline] { return int(deadline.remainingTime()); };
    QLocalSocket socket;
    socket.connectToServer(serverName);
    if (!socket.waitForConnected(left())) {
        return deadline.hasExpired() ? Answer::None : Answer::NobodyListens;
    }
    yieldForeground();
    socket.write(messageOf(request));
    while (socket.bytesAvailable() == 0) {
        const bool goesOn = socket.bytesToWrite() > 0 ? socket.waitForBytesWritten(left())
                                                      : socket.waitForReadyRead(left());
        if (!goesOn) {
            // A program that is about to end leaves.
            return socket.state() == QLocalSocket::ConnectedState ? Answer::None
                                                                  : Answer::NobodyListens;
        }
    }
    if (socket.read(1).front() != takenByte) {
        return Answer::None;
    }
    socket.write(&takenByte, 1);
    // The other program ends the connection.
    socket.waitForDisconnected(limitMs);
    return Answer::Taken;
}

bool SingleInstance::listen()
{
    // Nobody listens: the socket is that of a program that has crashed.
    QLocalServer::removeServer(serverName);
    return server.listen(serverName);
}

void SingleInstance::receive(QLocalSocket *socket)
{
    socket->setReadBufferSize(sizeBytes + maxMessageBytes);
    connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    // The other program's limit has begun before.
    QTimer::singleShot(2 * limitMs, socket, [socket] { socket->abort(); });
    const auto request = std::make_shared<std::optional<StartRequest>>();
    const auto read = [this, socket, request] {
        if (!request->has_value()) {
            *request = readRequest(*socket);
            if (request->has_value()) {
                socket->write(&takenByte, 1);
                socket->flush();
            }
        }
        if (request->has_value() && socket->bytesAvailable() > 0) {
            // Through the event queue: what is opened may show a dialog.
            QMetaObject::invokeMethod(
                this, [this, taken = **request] { Q_EMIT requested(taken); }, Qt::QueuedConnection);
            socket->abort();
        }
    };
    connect(socket, &QLocalSocket::readyRead, this, read);
    read();
}
