// The demo provider: a small provider of internet television on this machine, to aim a player at.

#include "DemoServer.h"
#include "DemoStreams.h"

#include <QCommandLineParser>
#include <QGuiApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// The words of the command line.
struct Options
{
    const QCommandLineOption port{u"port"_s, u"Listen on this loopback port; 0 takes a free one."_s,
                                  u"number"_s, u"0"_s};
    const QCommandLineOption streams{u"streams"_s, u"Keep the generated streams in this folder."_s,
                                     u"folder"_s, u"demo-streams"_s};
    const QCommandLineOption channels{u"channels"_s, u"Offer at least so many channels."_s,
                                      u"number"_s, u"0"_s};
    const QCommandLineOption films{u"films"_s, u"Offer at least so many films."_s, u"number"_s,
                                   u"0"_s};
    const QCommandLineOption shows{u"shows"_s, u"Offer at least so many shows."_s, u"number"_s,
                                   u"0"_s};
    const QCommandLineOption fault{
        u"fault"_s,
        u"Answer an action in another manner; may be given more than once. Actions: login, "
        u"get_live_categories, "
        "get_live_streams, get_vod_categories, get_vod_streams, get_series_categories, get_series, "
        "get_series_info. Manners: gzip, chunked, redirect, html, unavailable, cut."_s,
        u"action=manner"_s};
};

/// The number of an option; the parser shows its help and ends the process when it is none.
int numberOf(QCommandLineParser &parser, const QCommandLineOption &option, int limit)
{
    bool ok = false;
    const int number = parser.value(option).toInt(&ok);
    if (!ok || number < 0 || number > limit) {
        std::fprintf(stderr, "demo-provider: --%s takes a number from 0 to %d\n",
                     qPrintable(option.names().constFirst()), limit);
        parser.showHelp(1);
    }
    return number;
}

} // namespace

int main(int argc, char **argv)
{
    // It paints posters, but shows no window.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication app(argc, argv);
    QCoreApplication::setApplicationName(u"demo-provider"_s);

    const Options options;
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"A provider of internet television on this machine, for trying players. The account is "
        "demo / demo. Its own channels have a programme guide that moves with the clock "
        "(xmltv.php, get_short_epg, get_simple_data_table; the playlist names guide.xml) and an "
        "archive of three days (/timeshift/, /streaming/timeshift.php; in the playlist with utc "
        "and lutc)."_s);
    parser.addHelpOption();
    parser.addOptions({options.port, options.streams, options.channels, options.films,
                       options.shows, options.fault});
    parser.process(app);

    constexpr int maxPort = 65535;
    constexpr int maxEntries = 1'000'000;
    const int port = numberOf(parser, options.port, maxPort);
    const DemoServer::Size size{numberOf(parser, options.channels, maxEntries),
                                numberOf(parser, options.films, maxEntries),
                                numberOf(parser, options.shows, maxEntries)};
    if (!makeDemoStreams(parser.value(options.streams))) {
        return 1;
    }
    DemoServer server(parser.value(options.streams), size, static_cast<quint16>(port));
    if (!server.isListening()) {
        std::fprintf(stderr, "demo-provider: port %d is taken\n", port);
        return 1;
    }
    for (const QString &fault : parser.values(options.fault)) {
        if (!server.setFault(fault.section(u'=', 0, 0), fault.section(u'=', 1))) {
            std::fprintf(stderr, "demo-provider: unknown fault %s\n", qPrintable(fault));
            return 1;
        }
    }
    std::printf("Account:  %s  demo / demo\nPlaylist: %s\nReady\n", qPrintable(server.url()),
                qPrintable(server.playlistUrl()));
    std::fflush(stdout);
    return QGuiApplication::exec();
}
