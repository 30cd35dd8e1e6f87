#include "ui/AccountInformationDialog.h"

#include "model/SourceConfig.h"
#include "providers/AccountInformation.h"
#include "providers/XtreamClient.h"
#include "ui/WrappedLabel.h"

#include <QBoxLayout>
#include <QDateTime>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLocale>
#include <QPushButton>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int smallestWidth = 420;
/// A server can send any text; the dialog shows its beginning.
constexpr int longestValue = 200;

QString localDate(qint64 secondsSinceEpoch)
{
    return QLocale().toString(QDateTime::fromSecsSinceEpoch(secondsSinceEpoch).date(),
                              QLocale::LongFormat);
}

} // namespace

AccountInformationDialog::AccountInformationDialog(const SourceConfig &source, QWidget *parent)
    : QDialog(parent)
    , client(new XtreamClient(this))
    , message(new WrappedLabel)
    , form(new QFormLayout)
{
    setWindowTitle(tr("Account Information"));
    setMinimumWidth(smallestWidth);
    message->setObjectName(u"accountMessage"_s);
    addRow(tr("Source"), source.name);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Retry | QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setObjectName(u"closeButton"_s);
    retry = buttons->button(QDialogButtonBox::Retry);
    connect(retry, &QPushButton::clicked, this, &AccountInformationDialog::ask);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(message);
    layout->addStretch();
    layout->addWidget(buttons);
    client->configure(
        XtreamAccount{source.url, source.username, source.password, source.userAgent});
    ask();
}

void AccountInformationDialog::ask()
{
    retry->hide();
    message->setText(tr("Asking the server..."));
    client->get({}, {}, [this](const QJsonDocument &reply, bool ok) {
        if (!ok) {
            fail(tr("The server could not be reached, or its answer cannot be read."));
        } else if (const auto information = readAccountInformation(reply)) {
            showInformation(*information);
        } else {
            fail(tr("The server does not accept this account, or tells nothing about it."));
        }
    });
}

void AccountInformationDialog::fail(const QString &text)
{
    message->setText(text);
    retry->show();
}

void AccountInformationDialog::showInformation(const AccountInformation &information)
{
    message->hide();
    const QString unknown = tr("Unknown");
    const auto textOr = [&unknown](const QString &text) { return text.isEmpty() ? unknown : text; };
    const auto count = [&unknown](const std::optional<qint64> &number) {
        return number ? QLocale().toString(*number) : unknown;
    };
    addRow(tr("Status"), textOr(information.status));
    addRow(tr("Expires"), information.expiresAt ? localDate(*information.expiresAt) : tr("Never"));
    addRow(tr("Trial"), !information.isTrial   ? unknown
                        : *information.isTrial ? tr("Yes")
                                               : tr("No"));
    addRow(tr("Connections in use"), count(information.connectionsInUse));
    addRow(tr("Connections allowed"), count(information.connectionsAllowed));
    addRow(tr("Formats"), textOr(information.formats.join(", "_L1)));
    addRow(tr("Time zone of the server"), textOr(information.timeZone));
}

/// Adds a row whose value the user can select and copy.
void AccountInformationDialog::addRow(const QString &name, const QString &value)
{
    const QString shown = value.simplified().left(longestValue);
    auto *text = new WrappedLabel;
    text->setText(shown);
    // Beside its name, also where the value is of the other direction.
    text->setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) |
                       Qt::AlignAbsolute | Qt::AlignVCenter);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setAccessibleName(name);
    text->setAccessibleDescription(shown);
    form->addRow(name, text);
}
