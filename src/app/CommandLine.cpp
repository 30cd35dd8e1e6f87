#include "app/CommandLine.h"

#include "providers/SubscriptionAddress.h"

#include <QCommandLineParser>
#include <QCoreApplication>

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
        return text == "--help" || text == "-h" || text == "--version" || text == "-v";
    });
}

std::optional<int> CommandLine::process(const QCoreApplication &app)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::translate("CommandLine", "A player for internet television."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version(
        {u"v"_s, u"version"_s},
        QCoreApplication::translate("CommandLine", "Displays version information."));
    parser.addOption(version);
    if (!parser.parse(app.arguments())) {
        report(parser.errorText());
    }
    if (parser.isSet(help) || parser.isSet(u"help-all"_s)) {
        std::fputs(qPrintable(parser.helpText()), stdout);
        return EXIT_SUCCESS;
    }
    if (parser.isSet(version)) {
        std::fputs(qPrintable(versionText()), stdout);
        return EXIT_SUCCESS;
    }
    for (const QString &argument : parser.positionalArguments()) {
        report(
            QCoreApplication::translate("CommandLine", "Unexpected argument '%1'.").arg(argument));
    }
    return std::nullopt;
}
