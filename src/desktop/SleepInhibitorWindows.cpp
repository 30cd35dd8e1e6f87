#include "desktop/SleepInhibitor.h"

#include <utility>

#include <windows.h>

SleepInhibitor::SleepInhibitor(QObject *parent)
    : QObject(parent)
{}

SleepInhibitor::~SleepInhibitor()
{
    keepAwake(Awake::Nothing);
}

void SleepInhibitor::keepAwake(Awake what)
{
    if (what == std::exchange(awake, what)) {
        return;
    }
    switch (awake) {
    case Awake::Nothing:
        SetThreadExecutionState(ES_CONTINUOUS);
        break;
    case Awake::System:
        SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED);
        break;
    case Awake::Screen:
        SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED | ES_DISPLAY_REQUIRED);
        break;
    }
}
