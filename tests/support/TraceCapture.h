#pragma once

#include <QString>
#include <QTemporaryFile>

/// Catches what the process writes to its standard error (the file descriptor) while it lives.
class TraceCapture
{
public:
    TraceCapture();
    ~TraceCapture();
    TraceCapture(const TraceCapture &) = delete;
    TraceCapture &operator=(const TraceCapture &) = delete;

    /// What was written since the construction or the last take(), read as UTF-8.
    QString take();

private:
    QTemporaryFile file;
    int savedDescriptor = -1;
    qint64 taken = 0;
};
