#include "ui/ClearHistoryDialog.h"

#include "ui/WrappedLabel.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

ClearHistoryDialog::ClearHistoryDialog(const LibraryRows &rows, QWidget *parent)
    : QDialog(parent)
    , watched(new QCheckBox(tr("Recently watched")))
    , progress(new QCheckBox(tr("Positions and watched marks")))
{
    setWindowTitle(tr("Clear History"));
    watched->setObjectName(u"watchedCheck"_s);
    progress->setObjectName(u"progressCheck"_s);
    auto *text = new WrappedLabel;
    text->setText(tr("What goes, of all sources? Favorites and hidden categories stay."));
    auto *buttons = new QDialogButtonBox;
    auto *clear = buttons->addButton(tr("Clear"), QDialogButtonBox::AcceptRole);
    // Added last: Tab would not reach it otherwise.
    buttons->addButton(QDialogButtonBox::Cancel);
    clear->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(text);
    for (const auto &[box, hasRows] : {std::pair(watched, !rows.history.isEmpty()),
                                       std::pair(progress, !rows.progress.isEmpty())}) {
        layout->addWidget(box);
        box->setEnabled(hasRows);
        box->setChecked(hasRows);
        connect(box, &QCheckBox::toggled, clear,
                [this, clear] { clear->setEnabled(!parts().isEmpty()); });
    }
    layout->addStretch();
    layout->addWidget(buttons);
}

QList<LibraryPart> ClearHistoryDialog::parts() const
{
    QList<LibraryPart> chosen;
    if (watched->isChecked()) {
        chosen << LibraryPart::History;
    }
    if (progress->isChecked()) {
        chosen << LibraryPart::Progress;
    }
    return chosen;
}
