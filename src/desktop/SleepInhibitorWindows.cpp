#include "desktop/SleepInhibitor.h"

#include <utility>

#include <windows.h>

SleepInhibitor::SleepInhibitor(QObject *parent)
    : QObject(parent)
{}

SleepInhibitor::~SleepInhibitor()
{
    keepAwake(false);
}

void SleepInhibitor::keepAwake(bool on)
{
    if (on != std::exchange(isAwake, on)) {
        SetThreadExecutionState(on ? ES_CONTINUOUS | ES_SYSTEM_REQUIRED : ES_CONTINUOUS);
    }
}
