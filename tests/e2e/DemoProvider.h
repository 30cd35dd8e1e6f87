#pragma once

#include <QProcess>
#include <QString>

/// The demo provider as a process of its own. Its streams are kept in the build folder.
class DemoProvider final
{
public:
    DemoProvider() = default;
    ~DemoProvider();
    DemoProvider(const DemoProvider &) = delete;
    DemoProvider &operator=(const DemoProvider &) = delete;

    /// Waits until it answers; makes its streams first where they are not there yet.
    [[nodiscard]] bool start();

    QString accountUrl() const { return account; }
    QString playlistUrl() const { return playlist; }

private:
    QProcess process;
    QString account;
    QString playlist;
};
