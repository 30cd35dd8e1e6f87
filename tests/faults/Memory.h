#pragma once

#include <QByteArray>
#include <QFile>

/// Forgets the highest use of memory so far, where the system lets a process do that.
inline void resetPeakMemory()
{
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly)) {
        file.write("5");
    }
}

/// A figure of /proc/self/status in MB: "VmRSS" is what is used now, "VmHWM" the highest use.
inline qint64 memoryMb(const QByteArray &figure)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (file.open(QIODevice::ReadOnly)) {
        const QByteArray text = file.readAll();
        const qsizetype begin = text.indexOf(figure + ':') + figure.size() + 1;
        return text.mid(begin, text.indexOf("kB", begin) - begin).trimmed().toLongLong() / 1024;
    }
    return 0;
}
