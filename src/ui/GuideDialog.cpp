#include "ui/GuideDialog.h"

#include "guide/GuideResult.h"
#include "ui/GuideAddressList.h"
#include "ui/GuideResultText.h"
#include "ui/WrappedLabel.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int smallestWidth = 560;
constexpr double mostHours = 24;
constexpr double hourStep = 0.5;
constexpr qint64 secondsPerStep = 1800;

} // namespace

GuideDialog::GuideDialog(const GuideSettings &settings, bool isAccount, QWidget *parent)
    : QDialog(parent)
    , initial(settings)
    , enabledCheck(new QCheckBox(tr("Show a programme guide for this source")))
    , addresses(new GuideAddressList)
    , offset(new QDoubleSpinBox)
    , refreshCheck(new QCheckBox(tr("Refresh every 12 hours")))
    , update(new QPushButton(tr("Update Now")))
    , cancelUpdate(new QPushButton(tr("Cancel Update")))
    , progress(new QProgressBar)
    , resultText(new WrappedLabel)
{
    setWindowTitle(tr("Programme Guide"));
    setMinimumWidth(smallestWidth);
    auto *source = new WrappedLabel;
    source->setText(tr("Source: %1").arg(settings.source));
    enabledCheck->setObjectName(u"guideEnabled"_s);
    resultText->setObjectName(u"guideResult"_s);
    resultText->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(source);
    layout->addWidget(enabledCheck);
    layout->addWidget(buildForm());
    layout->addWidget(buildUpdateRow());
    layout->addWidget(resultText);
    layout->addStretch();
    layout->addWidget(buttons);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);

    enabledCheck->setChecked(settings.enabled);
    addresses->setAddresses(settings.addresses.split(u'\n', Qt::SkipEmptyParts));
    addresses->setOwnAddresses(isAccount ? QStringList{accountGuideAddress.toString()}
                                         : QStringList());
    offset->setValue(hourStep * static_cast<double>(settings.offsetSeconds) / secondsPerStep);
    refreshCheck->setChecked(settings.refresh);
    connect(addresses, &GuideAddressList::changed, this, &GuideDialog::showState);
    connect(enabledCheck, &QCheckBox::toggled, this, &GuideDialog::showState);
    connect(enabledCheck, &QCheckBox::toggled, this, &GuideDialog::fillIn);
    setProgress(-1);
    setResult({});
    fillIn();
    showState();
}

QWidget *GuideDialog::buildForm()
{
    offset->setObjectName(u"guideOffset"_s);
    offset->setRange(-mostHours, mostHours);
    offset->setSingleStep(hourStep);
    offset->setDecimals(1);
    offset->setSuffix(tr(" hours"));
    refreshCheck->setObjectName(u"guideRefresh"_s);

    auto *label = new QLabel(tr("Where the guide comes from, in order of preference:"));
    label->setBuddy(addresses);
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(addresses);
    auto *form = new QFormLayout;
    form->addRow(tr("Shift all times by:"), offset);
    layout->addLayout(form);
    layout->addWidget(refreshCheck);
    connect(enabledCheck, &QCheckBox::toggled, page, &QWidget::setEnabled);
    page->setEnabled(false);
    return page;
}

QWidget *GuideDialog::buildUpdateRow()
{
    update->setObjectName(u"updateGuide"_s);
    cancelUpdate->setObjectName(u"cancelGuideUpdate"_s);
    progress->setObjectName(u"guideProgress"_s);
    progress->setAccessibleName(tr("Progress of the update"));
    connect(update, &QPushButton::clicked, this, [this] { Q_EMIT updateRequested(settings()); });
    connect(cancelUpdate, &QPushButton::clicked, this, &GuideDialog::cancelRequested);

    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(update);
    layout->addWidget(progress, 1);
    layout->addWidget(cancelUpdate);
    layout->addStretch();
    return row;
}

GuideSettings GuideDialog::settings() const
{
    GuideSettings chosen = initial;
    chosen.enabled = enabledCheck->isChecked();
    chosen.addresses = addresses->addresses().join(u'\n');
    chosen.offsetSeconds = qRound64(offset->value() / hourStep) * secondsPerStep;
    chosen.refresh = refreshCheck->isChecked();
    return chosen;
}

void GuideDialog::offerPlaylistAddresses(const QStringList &named)
{
    addresses->setOwnAddresses(named);
    fillIn();
}

/// Not while there is no guide: then nothing is stored of it.
void GuideDialog::fillIn()
{
    if (enabledCheck->isChecked()) {
        addresses->fillIn();
    }
}

void GuideDialog::setUpdating(bool updating)
{
    const bool hadFocus = update->hasFocus() || cancelUpdate->hasFocus();
    isUpdating = updating;
    showState();
    if (hadFocus) {
        (updating ? cancelUpdate : update)->setFocus();
    }
}

void GuideDialog::setProgress(int percent)
{
    constexpr int all = 100;
    progress->setRange(0, percent < 0 ? 0 : all);
    progress->setValue(percent);
}

void GuideDialog::setResult(const GuideResult &result)
{
    const QString text = guideResultText(result);
    resultText->setText(text);
    resultText->setAccessibleDescription(text);
    resultText->setVisible(!text.isEmpty());
}

/// Shows what can be done now.
void GuideDialog::showState()
{
    update->setEnabled(enabledCheck->isChecked() && !isUpdating &&
                       !addresses->addresses().isEmpty());
    progress->setVisible(isUpdating);
    cancelUpdate->setVisible(isUpdating);
}
