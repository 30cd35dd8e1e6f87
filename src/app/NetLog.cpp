#include "app/NetLog.h"

#include <cstdio>
#include <cstdlib>

bool netDebugEnabled()
{
    static const bool enabled = [] {
        const char *value = std::getenv("VANTIRO_NET_DEBUG");
        return value != nullptr && QString::fromLocal8Bit(value) != QLatin1String("0");
    }();
    return enabled;
}

NetLogStream::NetLogStream()
    : debug(&text)
{
    debug.noquote();
}

NetLogStream::~NetLogStream()
{
    std::fputs(text.toUtf8().constData(), stderr);
    std::fputc('\n', stderr);
    std::fflush(stderr);
}
