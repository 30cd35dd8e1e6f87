#pragma once

#include <QLocalServer>
#include <QObject>
#include <QString>
#include <QStringList>

class QLocalSocket;

/// What a start of the program was given.
struct StartRequest
{
    /// Absolute paths and URLs, as openAddress() makes them.
    QStringList addresses;
    /// The desktop's token of this start, which lets a window come to the front; empty without one.
    QString activationToken;

    bool operator==(const StartRequest &) const = default;
};

/// Where the program that runs on this profile listens: a socket's path, on Windows a pipe's name.
/// A profile is where settings and data are stored; each has its own. Empty when there is no place
/// that only the user can reach. To be called when the application has its names.
QString profileServerName();

/// Sees to it that one program runs on a profile: a second start hands over what it was given and
/// ends. All calls are for the thread that made it.
class SingleInstance final : public QObject
{
    Q_OBJECT

public:
    enum class Start
    {
        First,      ///< listens to later starts from now on
        HandedOver, ///< another program took the request; this one should end
        Alone,      ///< another one runs but does not answer, or nothing can listen here
    };

    /// How long to wait for another program's answer.
    static constexpr int defaultLimitMs = 5000;

    /// `name` as profileServerName() gives it.
    explicit SingleInstance(QString name, int limitMs = defaultLimitMs, QObject *parent = nullptr);

    /// Hands over to the program that runs, or becomes the one that runs. What a crashed program
    /// has left is no obstacle. Blocks for little more than the time limit.
    Start start(const StartRequest &request);
    /// Listens no more: the next start is a first one.
    void close();

Q_SIGNALS:
    /// A later start has handed this over. The program should come to the front.
    void requested(const StartRequest &request);

private:
    enum class Answer
    {
        Taken,
        NobodyListens,
        None, ///< within the time limit
    };

    Answer handOver(const StartRequest &request) const;
    bool listen();
    void receive(QLocalSocket *socket);

    QString serverName;
    int limitMs;
    QLocalServer server;
};
