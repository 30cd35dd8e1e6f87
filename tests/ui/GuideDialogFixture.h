#pragma once

#include "support/TestMain.h"
#include "ui/GuideDialog.h"

#include <QPushButton>

#include <memory>

using namespace Qt::StringLiterals; // for tests only

/// One test's dialog of a guide, on screen. A test class that derives from it resets `dialog` in
/// its cleanup().
class GuideDialogFixture
{
protected:
    inline static const QString account = u"account"_s; ///< the address of an account's own guide

    static GuideSettings stored(const QString &addresses = {}, bool enabled = true)
    {
        GuideSettings settings;
        settings.source = u"<b>Mine</b>"_s;
        settings.enabled = enabled;
        settings.addresses = addresses;
        settings.archiveForm = 2;
        return settings;
    }
    void make(const GuideSettings &settings, bool isAccount = false)
    {
        dialog = std::make_unique<GuideDialog>(settings, isAccount, nullptr);
        dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    }
    template <typename Widget>
    Widget &find(const QString &name) const
    {
        return *dialog->findChild<Widget *>(name);
    }
    QPushButton &button(const QString &name) const { return find<QPushButton>(name); }

    std::unique_ptr<GuideDialog> dialog;
};
