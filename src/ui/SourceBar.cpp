#include "ui/SourceBar.h"

#include "ui/ElidedComboBox.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

/// A third of the window's width at the start.
constexpr int sourceComboMaxWidth = 400;

} // namespace

SourceBar::SourceBar(QWidget *parent)
    : QWidget(parent)
    , sourceCombo(new ElidedComboBox)
    , moreButton(new QPushButton(tr("More")))
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    sourceCombo->setObjectName(u"sourceCombo"_s);
    sourceCombo->setAccessibleName(tr("Source"));
    sourceCombo->setMinimumWidth(220);
    sourceCombo->setMaximumWidth(sourceComboMaxWidth);
    auto *add = new QPushButton(tr("Add Source..."));
    auto *edit = new QPushButton(tr("Edit Source..."));
    auto *refresh = new QPushButton(tr("Refresh Playlist"));
    refresh->setToolTip(tr("Fetch the catalog of the source again"));

    // The theme leaves the arrow too small to see; the menus of the player's buttons have none.
    moreButton->setStyleSheet(u"QPushButton::menu-indicator { image: none; width: 0; }"_s);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(tr("Source:")));
    layout->addWidget(sourceCombo);
    layout->addWidget(add);
    layout->addWidget(edit);
    layout->addWidget(refresh);
    layout->addStretch();
    layout->addWidget(moreButton);

    connect(add, &QPushButton::clicked, this, &SourceBar::addRequested);
    connect(edit, &QPushButton::clicked, this, &SourceBar::editRequested);
    connect(refresh, &QPushButton::clicked, this, &SourceBar::refreshRequested);
    connect(sourceCombo, &QComboBox::currentIndexChanged, this, &SourceBar::currentChanged);
}

void SourceBar::setMoreMenu(QMenu *menu)
{
    moreButton->setMenu(menu);
}

void SourceBar::setNames(const QStringList &names)
{
    const QSignalBlocker blocker(sourceCombo);
    sourceCombo->clear();
    for (const QString &name : names) {
        sourceCombo->addItem(name, name);
    }
}

bool SourceBar::isEmpty() const
{
    return sourceCombo->count() == 0;
}

int SourceBar::currentIndex() const
{
    return sourceCombo->currentIndex();
}

QString SourceBar::nameAt(int index) const
{
    return sourceCombo->itemData(index).toString();
}

int SourceBar::indexOf(const QString &name) const
{
    return sourceCombo->findData(name, Qt::UserRole, Qt::MatchExactly | Qt::MatchCaseSensitive);
}

void SourceBar::setCurrentIndex(int index)
{
    sourceCombo->setCurrentIndex(index);
}

void SourceBar::append(const QString &name)
{
    sourceCombo->addItem(name, name);
    sourceCombo->setCurrentIndex(sourceCombo->count() - 1);
}

void SourceBar::rename(int index, const QString &name)
{
    sourceCombo->setItemText(index, name);
    sourceCombo->setItemData(index, name);
}

void SourceBar::remove(const QString &name)
{
    const QSignalBlocker blocker(sourceCombo);
    for (int index = sourceCombo->count() - 1; index >= 0; --index) {
        if (nameAt(index) == name) {
            sourceCombo->removeItem(index);
        }
    }
}
