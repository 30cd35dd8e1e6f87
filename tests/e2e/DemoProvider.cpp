#include "e2e/DemoProvider.h"

using namespace Qt::StringLiterals;

namespace {

/// Making all streams takes half a minute on a small machine.
constexpr int startTimeoutMs = 180000;

} // namespace

DemoProvider::~DemoProvider()
{
    process.terminate();
    if (!process.waitForFinished(5000)) {
        process.kill();
        process.waitForFinished();
    }
}

bool DemoProvider::start()
{
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QStringLiteral(VANTIRO_DEMO_PROVIDER),
                  {u"--streams"_s, QStringLiteral(VANTIRO_DEMO_STREAMS)});
    for (;;) {
        if (!process.canReadLine() && !process.waitForReadyRead(startTimeoutMs)) {
            return false;
        }
        while (process.canReadLine()) {
            const QString line = QString::fromUtf8(process.readLine()).trimmed();
            if (line.startsWith("Account:"_L1)) {
                account = line.section(u' ', 1, 1, QString::SectionSkipEmpty);
            } else if (line.startsWith("Playlist:"_L1)) {
                playlist = line.section(u' ', 1, 1, QString::SectionSkipEmpty);
            } else if (line == "Ready"_L1) {
                return true;
            }
        }
    }
}
