// Says on standard output whether tracing is on, writes sample trace lines when it is, and dies
// without a flush. Its first argument is a value to set the switch to after the first look.

#include "app/NetLog.h"

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

void say(const char *text)
{
    std::fputs(text, stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

void writeSampleLines()
{
    NetLogStream() << "[M3U] ->" << u"http://host/\"a\\b\"?x=1"_s;
    NetLogStream() << "[M3U] <-" << qint64(9007199254740993) << "bytes";
    NetLogStream() << "[VLC]" << -1 << 2.5 << true << u"a  b "_s << QString();
    NetLogStream() << "[Xtream] <-" << u"\u00e9 \u4e2d \U0001F600\ttab"_s;
    NetLogStream();
}

} // namespace

int main(int argc, char **argv)
{
    // Nothing may hang on the handler, nor on a buffer that is written when the program ends.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {
        say("message handler called");
    });
    std::setvbuf(stderr, nullptr, _IOFBF, 65536);
    say(netDebugEnabled() ? "on" : "off");
    if (argc > 1) {
        qputenv("VANTIRO_NET_DEBUG", argv[1]);
        say(netDebugEnabled() ? "on" : "off");
        qunsetenv("VANTIRO_NET_DEBUG");
        say(netDebugEnabled() ? "on" : "off");
    }
    if (netDebugEnabled()) {
        writeSampleLines();
    }
    std::_Exit(0);
}
