#pragma once

#include <QDebug>
#include <QString>

/// True when network tracing is on for this run: the environment variable VANTIRO_NET_DEBUG is
/// set to anything but exactly "0". Read once, on the first call; thread-safe.
bool netDebugEnabled();

/// Collects one trace line and writes it to standard error when it is destroyed.
///
/// Strings are written without quotes, and each item is followed by one space. The line bypasses
/// Qt's message handler and is flushed immediately. Construct it only while netDebugEnabled() is
/// true, and pass external text through traceSafe() first.
class NetLogStream final
{
public:
    NetLogStream();
    ~NetLogStream();
    Q_DISABLE_COPY_MOVE(NetLogStream)

    template <typename T>
    NetLogStream &operator<<(const T &value)
    {
        debug << value;
        return *this;
    }

private:
    QString text;
    QDebug debug;
};
