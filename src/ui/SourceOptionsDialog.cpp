#include "ui/SourceOptionsDialog.h"

#include "model/StreamHeaders.h"
#include "ui/WrappedLabel.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr int smallestWidth = 520;

} // namespace

SourceOptionsDialog::SourceOptionsDialog(const SourceConfig &source, QWidget *parent)
    : QDialog(parent)
    , initial(source)
    , userAgentEdit(new QLineEdit(source.userAgent))
    , problem(new WrappedLabel)
{
    setWindowTitle(tr("Source Options"));
    setMinimumWidth(smallestWidth);
    auto *name = new WrappedLabel;
    name->setText(tr("Source: %1").arg(source.name));
    userAgentEdit->setObjectName(u"userAgentEdit"_s);
    userAgentEdit->setPlaceholderText(tr("The usual one"));
    const QString explanation =
        tr("The name under which the player asks this source for its catalog, its guide and its "
           "streams. Only some providers want a certain one. A playlist can name another one for "
           "a channel.");
    userAgentEdit->setAccessibleDescription(explanation);
    auto *hint = new WrappedLabel;
    hint->setText(explanation);
    problem->setObjectName(u"userAgentProblem"_s);
    problem->hide();
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &SourceOptionsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *form = new QFormLayout;
    form->addRow(tr("&User agent:"), userAgentEdit);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(name);
    layout->addLayout(form);
    layout->addWidget(hint);
    layout->addWidget(problem);
    layout->addStretch();
    layout->addWidget(buttons);
}

SourceConfig SourceOptionsDialog::source() const
{
    SourceConfig changed = initial;
    changed.userAgent = userAgentEdit->text().trimmed();
    return changed;
}

void SourceOptionsDialog::accept()
{
    const QString userAgent = source().userAgent;
    if (userAgent.isEmpty() || isHeaderValue(userAgent)) {
        QDialog::accept();
        return;
    }
    problem->setText(tr("A user agent has at most 2048 characters: letters from A to Z, digits, "
                        "blanks and the other characters of a plain English keyboard."));
    problem->show();
    userAgentEdit->setFocus();
    userAgentEdit->selectAll();
}
