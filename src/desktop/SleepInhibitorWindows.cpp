#include "desktop/SleepInhibitor.h"

#include <utility>

#include <windows.h>

SleepInhibitor::SleepInhibitor(QObject *parent)
    : QObject(parent)
{}

SleepInhibitor::~SleepInhibitor()
{
    setActive(false);
}

void SleepInhibitor::setActive(bool newActive)
{
    if (newActive != std::exchange(active, newActive)) {
        // Without ES_DISPLAY_REQUIRED: the screen may go dark.
        SetThreadExecutionState(active ? ES_CONTINUOUS | ES_SYSTEM_REQUIRED : ES_CONTINUOUS);
    }
}
