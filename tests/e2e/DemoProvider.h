#pragma once

#include <QProcess>
#include <QRegularExpression>
#include <QString>

/// The demo provider as a process of its own. Its streams are kept in the build folder.
class DemoProvider final
{
public:
    DemoProvider() = default;
    ~DemoProvider()
    {
        process.kill();
        process.waitForFinished();
    }
    DemoProvider(const DemoProvider &) = delete;
    DemoProvider &operator=(const DemoProvider &) = delete;

    /// Waits until it answers; makes its streams first where they are not there yet, which takes
    /// half a minute on a small machine.
    [[nodiscard]] bool start()
    {
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QStringLiteral(VANTIRO_DEMO_PROVIDER),
                      {QStringLiteral("--streams"), QStringLiteral(VANTIRO_DEMO_STREAMS)});
        while (!output.contains(QStringLiteral("Ready"))) {
            if (!process.waitForReadyRead(180000))
                return false;
            output += QString::fromUtf8(process.readAllStandardOutput());
        }
        return true;
    }

    QString accountUrl() const { return printed(QStringLiteral("Account: +(\\S+)")); }
    QString playlistUrl() const { return printed(QStringLiteral("Playlist: +(\\S+)")); }

private:
    QString printed(const QString &pattern) const
    {
        return QRegularExpression(pattern).match(output).captured(1);
    }

    QProcess process;
    QString output;
};
