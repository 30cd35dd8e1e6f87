#include "support/desktop/Tool.h"

#include <QDebug>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

constexpr int toolTimeoutMs = 30000;

/// An empty text if all went well.
QString problemRunning(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    const bool ended = QTest::qWaitFor(
        [&process] { return process.state() == QProcess::NotRunning; }, toolTimeoutMs);
    if (!ended) {
        process.kill();
        process.waitForFinished();
        return u"it does not end"_s;
    }
    if (process.error() == QProcess::FailedToStart)
        return process.errorString();
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return QString::fromLocal8Bit(process.readAllStandardError()) +
               u" exit status %1"_s.arg(process.exitCode());
    return {};
}

} // namespace

bool runTool(const QString &program, const QStringList &arguments)
{
    const QString problem = problemRunning(program, arguments);
    if (!problem.isEmpty())
        qWarning().noquote() << program << arguments.join(u' ') << "failed:"_L1 << problem;
    return problem.isEmpty();
}

} // namespace desktop
