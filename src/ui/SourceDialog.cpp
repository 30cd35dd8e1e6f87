#include "ui/SourceDialog.h"

#include "providers/XtreamClient.h"
#include "ui/ElidedComboBox.h"
#include "ui/PlainMessageBox.h"
#include "ui/WrappedLabel.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>

using namespace Qt::StringLiterals;

namespace {

const QString subscriptionSourceName = u"Zevrino"_s;
const QString newAccountFormat = u"ts"_s;

/// Makes `widget` findable by its member's name.
template <typename Widget>
Widget *named(Widget *widget, const QString &name)
{
    widget->setObjectName(name);
    return widget;
}

QString defaultName(qint32 type)
{
    return type == SourceType::Xtream ? u"Xtream Account"_s : u"M3U Playlist"_s;
}

} // namespace

SourceDialog::SourceDialog(QWidget *parent, const SourceConfig *existing)
    : QDialog(parent)
    , testClient(new XtreamClient(this))
{
    setWindowTitle(existing != nullptr ? tr("Edit Source") : tr("Add Source"));
    setMinimumWidth(420);

    typeCombo = named(new ElidedComboBox, u"typeCombo"_s);
    typeCombo->addItem(tr("M3U Playlist"), SourceType::Playlist);
    typeCombo->addItem(tr("Xtream Codes"), SourceType::Xtream);
    typeCombo->addItem(tr("Zevrino"), SourceType::Zevrino);
    typeCombo->setAccessibleName(tr("Source Type"));

    pages = named(new QStackedWidget, u"pages"_s);
    pages->addWidget(buildPlaylistPage());
    pages->addWidget(buildXtreamPage());
    pages->addWidget(buildSubscriptionPage());
    connect(typeCombo, &QComboBox::currentIndexChanged, this, &SourceDialog::onTypeChanged);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &SourceDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &SourceDialog::reject);
    if (existing != nullptr) {
        auto *deleteButton =
            buttons->addButton(tr("Delete Source"), QDialogButtonBox::DestructiveRole);
        connect(deleteButton, &QPushButton::clicked, this, &SourceDialog::onDeleteClicked);
    }

    auto *typeRow = new QHBoxLayout;
    typeRow->addWidget(new QLabel(tr("Source Type:")));
    typeRow->addWidget(typeCombo, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(typeRow);
    layout->addWidget(pages);
    layout->addWidget(buttons);
    // Set explicitly: otherwise the first button of the pages becomes the default.
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);

    if (existing != nullptr) {
        fillFrom(*existing);
    } else {
        fillForNewSource();
    }
}

QWidget *SourceDialog::buildPlaylistPage()
{
    m3uNameEdit = named(new QLineEdit, u"m3uNameEdit"_s);
    m3uUrlEdit = named(new QLineEdit, u"m3uUrlEdit"_s);
    m3uUrlEdit->setPlaceholderText(tr("http://example.com/playlist.m3u or a local file path"));
    m3uUrlEdit->setAccessibleName(tr("Playlist URL/File"));
    auto *upload = new QPushButton(tr("Upload File..."));
    // Return on the focused button presses it; elsewhere it presses OK, the default.
    upload->setAutoDefault(true);
    connect(upload, &QPushButton::clicked, this, &SourceDialog::browseForFile);

    auto *urlRow = new QWidget;
    auto *urlLayout = new QHBoxLayout(urlRow);
    urlLayout->setContentsMargins(0, 0, 0, 0);
    urlLayout->addWidget(m3uUrlEdit);
    urlLayout->addWidget(upload);

    auto *page = new QWidget;
    auto *form = new QFormLayout(page);
    form->addRow(tr("Name:"), m3uNameEdit);
    form->addRow(tr("Playlist URL/File:"), urlRow);
    return page;
}

QWidget *SourceDialog::buildXtreamPage()
{
    xtreamNameEdit = named(new QLineEdit, u"xtreamNameEdit"_s);
    serverEdit = named(new QLineEdit, u"serverEdit"_s);
    serverEdit->setPlaceholderText(tr("http://example.com:8080"));
    usernameEdit = named(new QLineEdit, u"usernameEdit"_s);
    liveFormatCombo = named(new ElidedComboBox, u"liveFormatCombo"_s);
    for (const QString &format : {defaultLiveExtension(), newAccountFormat}) {
        liveFormatCombo->addItem(format, format);
    }
    auto *test = new QPushButton(tr("Test Connection"));
    test->setAutoDefault(true);
    connect(test, &QPushButton::clicked, this, &SourceDialog::testConnection);
    statusLabel = named(new WrappedLabel, u"statusLabel"_s);

    auto *page = new QWidget;
    auto *form = new QFormLayout(page);
    form->addRow(tr("Name:"), xtreamNameEdit);
    form->addRow(tr("Server URL:"), serverEdit);
    form->addRow(tr("Username:"), usernameEdit);
    form->addRow(tr("Password:"), buildPasswordRow());
    form->addRow(tr("Live Stream Format:"), liveFormatCombo);
    form->addRow(test, statusLabel);
    return page;
}

QWidget *SourceDialog::buildPasswordRow()
{
    passwordEdit = named(new QLineEdit, u"passwordEdit"_s);
    passwordEdit->setAccessibleName(tr("Password"));
    showPasswordCheck = named(new QCheckBox(tr("Show")), u"showPasswordCheck"_s);
    showPasswordCheck->setChecked(true);
    connect(showPasswordCheck, &QCheckBox::toggled, this, &SourceDialog::togglePasswordVisibility);

    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(passwordEdit);
    layout->addWidget(showPasswordCheck);
    return row;
}

QWidget *SourceDialog::buildSubscriptionPage()
{
    keyEdit = named(new QLineEdit, u"keyEdit"_s);
    keyEdit->setPlaceholderText(tr("Your Zevrino subscription key"));
    auto *page = new QWidget;
    auto *form = new QFormLayout(page);
    form->addRow(tr("Subscription Key:"), keyEdit);
    return page;
}

void SourceDialog::fillFrom(const SourceConfig &source)
{
    editedName = source.name;
    userAgent = source.userAgent;
    // Whatever is no account is loaded as a playlist.
    const qint32 type = SourceType::isAccount(source.type) ? source.type : SourceType::Playlist;
    typeCombo->setCurrentIndex(type);
    pages->setCurrentIndex(type);
    switch (type) {
    case SourceType::Xtream: {
        xtreamNameEdit->setText(source.name);
        serverEdit->setText(source.url);
        usernameEdit->setText(source.username);
        passwordEdit->setText(source.password);
        const int format = liveFormatCombo->findData(source.liveExtension, Qt::UserRole,
                                                     Qt::MatchExactly | Qt::MatchCaseSensitive);
        liveFormatCombo->setCurrentIndex(format < 0 ? 0 : format);
        break;
    }
    case SourceType::Zevrino:
        keyEdit->setText(source.subscriptionKey);
        break;
    default:
        m3uNameEdit->setText(source.name);
        m3uUrlEdit->setText(source.url);
        break;
    }
}

void SourceDialog::fillForNewSource()
{
    typeCombo->setCurrentIndex(SourceType::Xtream);
    pages->setCurrentIndex(SourceType::Xtream);
    liveFormatCombo->setCurrentIndex(liveFormatCombo->findData(newAccountFormat));
}

void SourceDialog::fillWithPlaylist(const QString &name, const QString &address)
{
    typeCombo->setCurrentIndex(typeCombo->findData(SourceType::Playlist));
    m3uNameEdit->setText(name);
    m3uUrlEdit->setText(address);
}

void SourceDialog::onTypeChanged(int index)
{
    pages->setCurrentIndex(index);
}

void SourceDialog::browseForFile()
{
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Upload M3U Playlist"), {}, tr("Playlists (*.m3u *.m3u8);;All Files (*)"));
    if (!path.isEmpty()) {
        m3uUrlEdit->setText(path);
    }
}

void SourceDialog::testConnection()
{
    statusLabel->setText(tr("Testing..."));
    testClient->configure(XtreamAccount{serverEdit->text().trimmed(),
                                        usernameEdit->text().trimmed(), passwordEdit->text(),
                                        userAgent});
    testClient->testLogin([this](bool ok, const QString &message) {
        statusLabel->setText(ok ? tr("Connection OK") : tr("Failed: %1").arg(message));
    });
}

void SourceDialog::togglePasswordVisibility(bool visible)
{
    passwordEdit->setEchoMode(visible ? QLineEdit::Normal : QLineEdit::Password);
}

void SourceDialog::onDeleteClicked()
{
    PlainMessageBox question(QMessageBox::Question, tr("Delete Source"),
                             tr("Delete source \"%1\"? This cannot be undone.").arg(editedName),
                             QMessageBox::Yes | QMessageBox::No, this);
    question.setDefaultButton(QMessageBox::No);
    if (question.exec() == QMessageBox::Yes) {
        deleteRequested = true;
        reject();
    }
}

SourceConfig SourceDialog::config() const
{
    SourceConfig config = defaultSourceConfig();
    config.userAgent = userAgent;
    config.type = typeCombo->currentData().toInt();
    switch (config.type) {
    case SourceType::Xtream:
        config.name = xtreamNameEdit->text().trimmed();
        config.url = serverEdit->text().trimmed();
        config.username = usernameEdit->text().trimmed();
        config.password = passwordEdit->text();
        config.liveExtension = liveFormatCombo->currentData().toString();
        break;
    case SourceType::Zevrino:
        config.name = subscriptionSourceName;
        config.subscriptionKey = keyEdit->text().trimmed();
        break;
    default:
        config.name = m3uNameEdit->text().trimmed();
        config.url = m3uUrlEdit->text().trimmed();
        break;
    }
    if (config.name.isEmpty()) {
        config.name = defaultName(config.type);
    }
    return config;
}
