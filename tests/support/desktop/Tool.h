#pragma once

#include <QString>
#include <QStringList>

namespace desktop {

/// Runs a small tool of the desktop to its end, while the event loop goes on. False, with a
/// warning, if it cannot start, fails or does not end.
[[nodiscard]] bool runTool(const QString &program, const QStringList &arguments);

} // namespace desktop
