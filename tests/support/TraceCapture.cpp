#include "support/TraceCapture.h"

#include <cstdio>

#include <unistd.h>

TraceCapture::TraceCapture()
{
    if (!file.open())
        qFatal("TraceCapture: cannot make a temporary file");
    std::fflush(stderr);
    savedDescriptor = dup(STDERR_FILENO);
    if (savedDescriptor < 0 || dup2(file.handle(), STDERR_FILENO) < 0)
        qFatal("TraceCapture: cannot redirect the standard error");
}

TraceCapture::~TraceCapture()
{
    std::fflush(stderr);
    dup2(savedDescriptor, STDERR_FILENO);
    close(savedDescriptor);
}

QString TraceCapture::take()
{
    std::fflush(stderr);
    // Read through a second descriptor: the first one's position is where the process writes.
    QFile reader(file.fileName());
    if (!reader.open(QIODevice::ReadOnly) || !reader.seek(taken))
        return {};
    const QByteArray bytes = reader.readAll();
    taken += bytes.size();
    return QString::fromUtf8(bytes);
}
