#include "support/TraceCapture.h"

#include <cstdio>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

#ifdef Q_OS_WIN
constexpr int standardError = 2;
int (*const duplicate)(int) = &_dup;
int (*const duplicateTo)(int, int) = &_dup2;
int (*const closeDescriptor)(int) = &_close;
#else
constexpr int standardError = STDERR_FILENO;
int (*const duplicate)(int) = &dup;
int (*const duplicateTo)(int, int) = &dup2;
int (*const closeDescriptor)(int) = &close;
#endif

} // namespace

TraceCapture::TraceCapture()
{
    if (!file.open())
        qFatal("TraceCapture: cannot make a temporary file");
    std::fflush(stderr);
    savedDescriptor = duplicate(standardError);
    if (savedDescriptor < 0 || duplicateTo(file.handle(), standardError) < 0)
        qFatal("TraceCapture: cannot redirect the standard error");
}

TraceCapture::~TraceCapture()
{
    std::fflush(stderr);
    duplicateTo(savedDescriptor, standardError);
    closeDescriptor(savedDescriptor);
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
