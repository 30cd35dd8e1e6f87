#pragma once

#include "WindowFixture.h"
#include "ui/ScheduleDialog.h"
#include "ui/SourceGuide.h"

/// A main window with a guide, and the schedule of a channel above it.
class ScheduleWindow : public WindowFixture
{
protected:
    /// Turns the guide of the active source on, and waits until it is up to date.
    void turnOn(const GuideSettings &settings) const
    {
        GuideSettings on = settings;
        on.enabled = true;
        sourceGuide().setSettings(on);
        QTRY_VERIFY_WITH_TIMEOUT(!sourceGuide().isUpdating(), 60'000);
    }
    SourceGuide &sourceGuide() const { return *window().findChild<SourceGuide *>(); }
    /// Null while no schedule is open.
    ScheduleDialog *schedule() const { return window().findChild<ScheduleDialog *>(); }
    /// Empty while no schedule is open.
    QString scheduleTitle() const
    {
        return schedule() != nullptr ? schedule()->windowTitle() : QString();
    }
    template <typename Widget>
    Widget *scheduleWidget(const QString &name) const
    {
        return schedule() != nullptr ? schedule()->findChild<Widget *>(name) : nullptr;
    }
};
