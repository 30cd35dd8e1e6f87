#include "ui/OpenLocationDialog.h"

#include "desktop/OpenTarget.h"
#include "ui/PlainMessageBox.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

OpenLocationDialog::OpenLocationDialog(QWidget *parent)
    : QDialog(parent)
    , addressEdit(new QLineEdit)
{
    setWindowTitle(tr("Open Location"));
    setMinimumWidth(520);
    addressEdit->setObjectName(u"addressEdit"_s);
    addressEdit->setPlaceholderText(tr("http://example.com/stream.ts or a local file path"));
    auto *buttons = new QDialogButtonBox;
    QPushButton *openButton = buttons->addButton(tr("Open"), QDialogButtonBox::AcceptRole);
    // Added last: Tab would not reach it otherwise.
    buttons->addButton(QDialogButtonBox::Cancel);
    openButton->setDefault(true);
    openButton->setEnabled(false);
    connect(addressEdit, &QLineEdit::textChanged, openButton, [openButton](const QString &text) {
        openButton->setEnabled(!text.trimmed().isEmpty());
    });
    connect(buttons, &QDialogButtonBox::accepted, this, &OpenLocationDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &OpenLocationDialog::reject);
    auto *form = new QFormLayout(this);
    form->addRow(tr("Address:"), addressEdit);
    form->addRow(buttons);
}

QString OpenLocationDialog::address() const
{
    return typedAddress(addressEdit->text());
}

void OpenLocationDialog::accept()
{
    const OpenTarget target = openTarget(address());
    if (target.kind == OpenTarget::Kind::Unfit) {
        PlainMessageBox::warn(this, windowTitle(), target.problem);
        return;
    }
    QDialog::accept();
}
