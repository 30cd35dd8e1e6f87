#include "ui/GuideChannelDialog.h"

#include "guide/Guide.h"
#include "ui/WrappedLabel.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QSignalBlocker>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int smallestWidth = 460;
constexpr int idRole = Qt::UserRole;

QString shownChannel(const GuideChannel &channel)
{
    return channel.name == channel.id ? channel.id : channel.name + u" ("_s + channel.id + u')';
}

} // namespace

GuideChannelDialog::GuideChannelDialog(Guide *theGuide, LibraryEntry ofChannel,
                                       const GuideMatch &match,
                                       const std::optional<GuideCorrection> &before,
                                       QWidget *parent)
    : QDialog(parent)
    , guide(theGuide)
    , channel(std::move(ofChannel))
    , automatic(new QRadioButton(tr("Automatic: find it by its id and name")))
    , none(new QRadioButton(tr("No guide for this channel")))
    , chosen(new QRadioButton(tr("This channel of the guide:")))
    , search(new QLineEdit)
    , list(new QListWidget)
    , note(new WrappedLabel)
{
    setWindowTitle(tr("Guide Channel"));
    setMinimumWidth(smallestWidth);
    automatic->setObjectName(u"automaticGuide"_s);
    none->setObjectName(u"noGuide"_s);
    chosen->setObjectName(u"chosenGuide"_s);
    auto *title = new WrappedLabel;
    title->setText(tr("Channel: %1").arg(channel.name));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    ok = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    const bool isSet = before.has_value();
    idToSelect = isSet ? before->guideId : match.id;
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(title);
    layout->addWidget(buildConfirmation(isSet ? GuideMatch() : match));
    layout->addWidget(automatic);
    layout->addWidget(none);
    layout->addWidget(chosen);
    layout->addWidget(buildSearch(idToSelect.isEmpty() ? channel.name : idToSelect));
    layout->addWidget(note);
    layout->addWidget(buttons);
    ok->setDefault(true);

    QRadioButton *choice = before && before->guideId.isEmpty() ? none : chosen;
    (isSet ? choice : automatic)->setChecked(true);
    for (const QRadioButton *button : {automatic, none, chosen}) {
        connect(button, &QRadioButton::toggled, this, &GuideChannelDialog::showState);
    }
    connect(guide, &Guide::changed, this, [this] {
        isAsking = false; // what was asked is not answered any more
        ask();
    });
    search->selectAll();
    ask();
    showState();
}

/// What was found by itself, and the button that confirms a suggestion.
QWidget *GuideChannelDialog::buildConfirmation(const GuideMatch &match)
{
    auto *text = new WrappedLabel;
    text->setObjectName(u"presentMatch"_s);
    auto *confirm = new QPushButton(tr("Confirm Suggestion"));
    confirm->setObjectName(u"confirmSuggestion"_s);
    confirm->setVisible(match.rule == GuideMatch::Rule::Suggestion);
    connect(confirm, &QPushButton::clicked, this, [this, id = match.id] {
        choose(id);
        accept();
    });
    switch (match.rule) {
    case GuideMatch::Rule::None:
    case GuideMatch::Rule::Chosen:
        break;
    case GuideMatch::Rule::Id:
        text->setText(tr("Found by the id that the source names: %1").arg(match.id));
        break;
    case GuideMatch::Rule::GuideName:
        text->setText(
            tr("Found by the name that the source gives for the guide: %1").arg(match.id));
        break;
    case GuideMatch::Rule::ChannelName:
        text->setText(tr("Found by the channel's name: %1").arg(match.id));
        break;
    case GuideMatch::Rule::Suggestion:
        text->setText(tr("Suggested, since the names are alike: %1").arg(match.id));
        break;
    }
    text->setVisible(!text->text().isEmpty());

    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(text, 1);
    layout->addWidget(confirm);
    return row;
}

QWidget *GuideChannelDialog::buildSearch(const QString &text)
{
    search->setObjectName(u"guideChannelSearch"_s);
    search->setAccessibleName(tr("Search the guide's channels"));
    search->setPlaceholderText(tr("Search the guide's channels..."));
    search->setText(text);
    list->setObjectName(u"guideChannels"_s);
    list->setAccessibleName(tr("Channels of the guide"));
    list->setUniformItemSizes(true);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    note->setObjectName(u"guideChannelNote"_s);
    connect(search, &QLineEdit::textEdited, this, [this] {
        chosen->setChecked(true);
        ask();
    });
    connect(list, &QListWidget::currentItemChanged, this, [this] {
        chosen->setChecked(true);
        showState();
    });
    // Also on the row that is the current one already.
    connect(list, &QListWidget::itemClicked, this, [this] { chosen->setChecked(true); });
    connect(list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    auto *down = new QShortcut(Qt::Key_Down, search);
    down->setContext(Qt::WidgetShortcut);
    connect(down, &QShortcut::activated, list, [this] {
        chosen->setChecked(true);
        // Before the focus, with which the list would make a row current that is not selected.
        if (list->currentRow() < 0) {
            list->setCurrentRow(0);
        }
        list->setFocus();
    });

    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(search);
    layout->addWidget(list);
    return page;
}

/// Asks for the channels of the text; one question at a time, however fast the user types.
void GuideChannelDialog::ask()
{
    if (isAsking) {
        return;
    }
    isAsking = true;
    askedFor = search->text().trimmed();
    guide->fetchChannels(askedFor, mostShown,
                         [self = QPointer<GuideChannelDialog>(this)](const auto &channels) {
                             if (GuideChannelDialog *open = self.data()) {
                                 open->takeAnswer(channels);
                             }
                         });
}

void GuideChannelDialog::takeAnswer(const QList<GuideChannel> &channels)
{
    isAsking = false;
    showChannels(channels);
    if (search->text().trimmed() != askedFor) {
        ask();
    }
}

void GuideChannelDialog::showChannels(const QList<GuideChannel> &channels)
{
    const QString id = selectedId().isEmpty() ? idToSelect : selectedId();
    {
        const QSignalBlocker blocker(list);
        list->clear();
        for (const GuideChannel &shown : channels) {
            auto *item = new QListWidgetItem(shownChannel(shown), list);
            item->setData(idRole, shown.id);
            if (shown.id == id) {
                list->setCurrentItem(item);
            }
        }
    }
    if (channels.isEmpty()) {
        note->setText(tr("No channel of the guide contains this text."));
    } else if (channels.size() < mostShown) {
        note->clear();
    } else {
        note->setText(tr("Only the first %1 are shown. Type more of the name.")
                          .arg(QLocale().toString(mostShown)));
    }
    showState();
}

void GuideChannelDialog::choose(const QString &guideId)
{
    chosen->setChecked(true);
    idToSelect = guideId;
    for (int row = 0; row < list->count(); ++row) {
        if (list->item(row)->data(idRole).toString() == guideId) {
            list->setCurrentRow(row);
            return;
        }
    }
    list->setCurrentRow(-1);
}

/// Of the current row.
QString GuideChannelDialog::selectedId() const
{
    const QListWidgetItem *item = list->currentItem();
    return item == nullptr ? QString() : item->data(idRole).toString();
}

void GuideChannelDialog::showState()
{
    ok->setEnabled(!chosen->isChecked() || !selectedId().isEmpty());
}

std::optional<GuideCorrection> GuideChannelDialog::correction() const
{
    if (automatic->isChecked()) {
        return std::nullopt;
    }
    if (none->isChecked()) {
        return GuideCorrection{channel, {}};
    }
    return GuideCorrection{channel, selectedId().isEmpty() ? idToSelect : selectedId()};
}
