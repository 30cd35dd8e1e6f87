#include "app/CommandLine.h"

#include "desktop/OpenTarget.h"
#include "providers/SubscriptionAddress.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

QString versionText()
{
    return QCoreApplication::applicationName() + u' ' + QCoreApplication::applicationVersion() +
           u'\n' +
           QCoreApplication::translate("CommandLine", "Subscription service: %1")
               .arg(configuredSubscriptionUrl()) +
           u'\n';
}

void report(const QString &message)
{
    std::fputs(qPrintable(message + u'\n'), stderr);
}

} // namespace

bool CommandLine::asksForText(int argc, char **argv)
{
    return std::any_of(argv, argv + argc, [](const char *argument) {
        const QByteArrayView text(argument);
        return text == "--help" || text == "--help-all" || text == "-h" || text == "--version" ||
               text == "-v";
    });
}

CommandLine::Request CommandLine::process(const QCoreApplication &app)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::translate("CommandLine", "A player for internet television."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version(
        {u"v"_s, u"version"_s},
        QCoreApplication::translate("CommandLine", "Displays version information."));
    parser.addOption(version);
    parser.addPositionalArgument(
        u"addresses"_s,
        QCoreApplication::translate("CommandLine",
                                    "Playlists, films and streams to open: files or URLs."),
        u"[FILE|URL...]"_s);
    if (!parser.parse(app.arguments())) {
        report(parser.errorText());
    }
    if (parser.isSet(help) || parser.isSet(u"help-all"_s)) {
        std::fputs(qPrintable(parser.helpText()), stdout);
        return {EXIT_SUCCESS, {}};
    }
    if (parser.isSet(version)) {
        std::fputs(qPrintable(versionText()), stdout);
        return {EXIT_SUCCESS, {}};
    }
    Request request;
    const QStringList words = parser.positionalArguments();
    for (const QString &word : words) {
        request.addresses << openAddress(word, QDir::currentPath());
    }
    return request;
}
