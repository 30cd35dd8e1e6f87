#pragma once

#include <QByteArray>
#include <QString>

/// Paints a poster with the title on it, as a PNG. The same title gives the same poster. Needs a
/// QGuiApplication; callable from any thread.
QByteArray paintDemoPoster(const QString &title, int year);
