#include "ui/GuideAddressList.h"

#include "library/LibraryRecords.h"
#include "ui/GuideResultText.h"

#include <QBoxLayout>
#include <QFileDialog>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Set on the account's own guide, which shows another text than its address.
constexpr int accountRole = Qt::UserRole;
constexpr int shownLines = 5;

QString addressOf(const QListWidgetItem &item)
{
    return item.data(accountRole).toBool() ? accountGuideAddress.toString() : item.text().trimmed();
}

} // namespace

GuideAddressList::GuideAddressList(QWidget *parent)
    : QWidget(parent)
    , list(new QListWidget)
{
    list->setObjectName(u"guideAddresses"_s);
    list->setAccessibleName(tr("Addresses of guides, the preferred one first"));
    list->setTextElideMode(Qt::ElideMiddle);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setUniformItemSizes(true);
    list->setMinimumHeight(shownLines * list->fontMetrics().lineSpacing() + 2 * list->frameWidth());
    setFocusProxy(list);
    connect(list, &QListWidget::itemChanged, this, &GuideAddressList::takeEdited);
    connect(list, &QListWidget::currentRowChanged, this, &GuideAddressList::report);
    auto *remove = new QShortcut(QKeySequence::Delete, list);
    remove->setContext(Qt::WidgetShortcut);
    connect(remove, &QShortcut::activated, this, &GuideAddressList::removeCurrent);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(list, 1);
    layout->addWidget(buildButtons());
    report();
}

QWidget *GuideAddressList::buildButtons()
{
    auto *column = new QWidget;
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    const auto add = [this, layout](const QString &text, const QString &name, auto slot) {
        auto *button = new QPushButton(text);
        button->setObjectName(name);
        connect(button, &QPushButton::clicked, this, slot);
        layout->addWidget(button);
        return button;
    };
    ownButton = add({}, u"addOwnGuide"_s, &GuideAddressList::addOwn);
    add(tr("Add Address..."), u"addGuideAddress"_s, &GuideAddressList::addAddress);
    add(tr("Add File..."), u"addGuideFile"_s, &GuideAddressList::addFile);
    removeButton = add(tr("Remove"), u"removeGuide"_s, &GuideAddressList::removeCurrent);
    upButton = add(tr("Move Up"), u"moveGuideUp"_s, [this] { move(-1); });
    downButton = add(tr("Move Down"), u"moveGuideDown"_s, [this] { move(1); });
    layout->addStretch();
    return column;
}

QStringList GuideAddressList::addresses() const
{
    QStringList all;
    for (int row = 0; row < list->count(); ++row) {
        all << addressOf(*list->item(row));
    }
    all.removeAll(QString());
    all.removeDuplicates();
    return all;
}

void GuideAddressList::setAddresses(const QStringList &shown)
{
    list->clear();
    for (const QString &address : shown) {
        if (!address.isEmpty()) {
            append(address);
        }
    }
    list->setCurrentRow(0);
    report();
}

void GuideAddressList::setOwnAddresses(const QStringList &own)
{
    ownAddresses = own;
    ownButton->setText(own.contains(accountGuideAddress) ? tr("Add Account's Guide")
                                                         : tr("Add Playlist's Guide"));
    report();
}

void GuideAddressList::fillIn()
{
    if (list->count() == 0) {
        addOwn();
    }
}

QListWidgetItem *GuideAddressList::append(const QString &address)
{
    const QSignalBlocker blocker(list);
    auto *item = new QListWidgetItem;
    const bool isAccount = address == accountGuideAddress;
    item->setData(accountRole, isAccount);
    item->setText(isAccount ? guideAddressName(address) : address);
    item->setFlags(isAccount ? item->flags() : item->flags() | Qt::ItemIsEditable);
    list->addItem(item);
    return item;
}

void GuideAddressList::addOwn()
{
    const QStringList there = addresses();
    for (const QString &address : std::as_const(ownAddresses)) {
        if (!there.contains(address)) {
            list->setCurrentItem(append(address));
        }
    }
    report();
}

/// The new line is written where it stands.
void GuideAddressList::addAddress()
{
    QListWidgetItem *item = append({});
    list->setCurrentItem(item);
    list->editItem(item);
    // Without a text it goes when the editor closes.
    connect(list->itemDelegate(), &QAbstractItemDelegate::closeEditor, this,
            &GuideAddressList::dropEmpty,
            static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::UniqueConnection));
}

void GuideAddressList::addFile()
{
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Add File"), {}, tr("Guides (*.xml *.xmltv *.gz);;All Files (*)"));
    if (!path.isEmpty()) {
        list->setCurrentItem(append(path));
        report();
    }
}

void GuideAddressList::removeCurrent()
{
    delete list->takeItem(list->currentRow());
    report();
}

void GuideAddressList::move(int distance)
{
    const int row = list->currentRow();
    QListWidgetItem *item = list->takeItem(row);
    list->insertItem(row + distance, item);
    list->setCurrentItem(item);
    report();
}

void GuideAddressList::takeEdited(QListWidgetItem *item)
{
    const QSignalBlocker blocker(list);
    item->setText(item->text().trimmed());
    report();
}

void GuideAddressList::dropEmpty()
{
    for (int row = list->count() - 1; row >= 0; --row) {
        if (addressOf(*list->item(row)).isEmpty()) {
            delete list->takeItem(row);
        }
    }
    report();
}

bool GuideAddressList::lacksOwn() const
{
    const QStringList there = addresses();
    return std::any_of(ownAddresses.cbegin(), ownAddresses.cend(),
                       [&there](const QString &own) { return !there.contains(own); });
}

/// Shows what can be done now.
void GuideAddressList::report()
{
    const int row = list->currentRow();
    ownButton->setVisible(!ownAddresses.isEmpty());
    ownButton->setEnabled(lacksOwn());
    removeButton->setEnabled(row >= 0);
    upButton->setEnabled(row > 0);
    downButton->setEnabled(row >= 0 && row + 1 < list->count());
    Q_EMIT changed();
}
