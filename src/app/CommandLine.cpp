#include "app/CommandLine.h"

#include "providers/ZevrinoClient.h"

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
               .arg(ZevrinoClient::serviceBaseUrl()) +
           u'\n';
}

} // namespace

bool CommandLine::asksForText(int argc, char **argv)
{
    return std::any_of(argv, argv + argc, [](const char *word) {
        const QByteArrayView text(word);
        return text == "--help" || text == "-h" || text == "--version" || text == "-v";
    });
}

void CommandLine::process(const QCoreApplication &app)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::translate("CommandLine", "A player for internet television."));
    parser.addHelpOption();
    const QCommandLineOption version(
        {u"v"_s, u"version"_s},
        QCoreApplication::translate("CommandLine", "Displays version information."));
    parser.addOption(version);
    parser.process(app);
    if (parser.isSet(version)) {
        std::fputs(qPrintable(versionText()), stdout);
        std::exit(EXIT_SUCCESS); // NOLINT(concurrency-mt-unsafe): no other thread yet
    }
    if (!parser.positionalArguments().isEmpty()) {
        std::fputs(
            qPrintable(QCoreApplication::translate("CommandLine", "Unexpected argument '%1'.")
                           .arg(parser.positionalArguments().constFirst()) +
                       u'\n'),
            stderr);
        std::exit(EXIT_FAILURE); // NOLINT(concurrency-mt-unsafe): no other thread yet
    }
}
