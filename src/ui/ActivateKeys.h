#pragma once

#include <functional>

class QObject;
class QWidget;

/// Makes Return and Enter on `widget` and its children run `action`, as long as `context` lives.
void addActivateKeyShortcuts(QWidget *widget, QObject *context,
                             const std::function<void()> &action);
