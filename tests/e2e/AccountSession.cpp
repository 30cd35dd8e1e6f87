#include "e2e/AccountSession.h"

#include "support/desktop/Input.h"
#include "support/desktop/Screen.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

const QString mainTitle = u"Vantiro Player"_s;

QProcessEnvironment traced(QProcessEnvironment environment)
{
    environment.insert(u"VANTIRO_NET_DEBUG"_s, u"1"_s);
    return environment;
}

/// Channels stand in a table, films and shows in a grid.
Role entryRole(const QString &tab)
{
    return tab == "Live TV"_L1 ? Role::Cell : Role::ListItem;
}

} // namespace

AccountSession::AccountSession(const QString &program, const QProcessEnvironment &environment)
    : app(program, {}, traced(environment))
{}

bool AccountSession::start()
{
    earlierTraces = traces();
    if (!app.start(mainTitle)) {
        return false;
    }
    window = app.waitForWindow(mainTitle);
    return bool(window);
}

bool AccountSession::close()
{
    return app.close() && app.exitCode() == 0;
}

Accessible AccountSession::addDialog() const
{
    return app.waitForWindow(u"Add Source"_s);
}

bool AccountSession::fillAccount(const XtreamProvider &provider, const QString &password) const
{
    const Accessible dialog = addDialog();
    return Keyboard::fill(dialog.waitFor(Role::Edit, u"Name:"_s), u"Home"_s) &&
           Keyboard::fill(dialog.waitFor(Role::Edit, u"Server URL:"_s), provider.url()) &&
           Keyboard::fill(dialog.waitFor(Role::Edit, u"Username:"_s), provider.user()) &&
           Keyboard::fill(dialog.waitFor(Role::Edit, u"Password"_s), password);
}

bool AccountSession::testsConnection(const QString &result) const
{
    const Accessible dialog = addDialog();
    return Mouse::click(dialog.waitFor(Role::Button, u"Test Connection"_s)) &&
           dialog.waitFor(Role::Label, result);
}

bool AccountSession::fillSubscription(const QString &key) const
{
    const Accessible dialog = addDialog();
    return Mouse::choose(dialog.waitFor(Role::ComboBox, 0), u"Zevrino"_s) &&
           Keyboard::fill(dialog.waitFor(Role::Edit, u"Subscription Key:"_s), key);
}

bool AccountSession::acceptDialog() const
{
    const Accessible dialog = addDialog();
    return Mouse::click(dialog.waitFor(Role::Button, u"OK"_s)) && dialog.waitUntilGone();
}

bool AccountSession::seesTab(const QString &tab, const QStringList &categories,
                             const QStringList &entries) const
{
    if (!Mouse::click(window.waitFor(Role::Tab, tab))) {
        return false;
    }
    for (const QString &category : categories) {
        if (!window.waitFor(Role::ListItem, category)) {
            return false;
        }
    }
    if (!Mouse::click(window.waitFor(Role::ListItem, u"All Categories"_s))) {
        return false;
    }
    for (const QString &entry : entries) {
        if (!window.waitFor(entryRole(tab), entry)) {
            return false;
        }
    }
    return true;
}

bool AccountSession::watches(const QString &tab, const QString &entry) const
{
    return Mouse::click(window.waitFor(Role::Tab, tab)) &&
           Mouse::click(window.waitFor(entryRole(tab), entry)) &&
           window.waitFor(Role::Label, u"Playing: "_s + entry) &&
           Screen::waitUntilMoving(window.find(Role::Other, u"Video"_s).rect());
}

bool AccountSession::seesFailure(const QString &title, const QString &beginning) const
{
    const Accessible box = app.waitForWindow(title);
    const QList<Accessible> labels = box.findAll(Role::Label);
    const bool told =
        std::any_of(labels.begin(), labels.end(), [&beginning](const Accessible &label) {
            return label.name().startsWith(beginning);
        });
    return told && Mouse::click(box.waitFor(Role::Button, u"OK"_s)) && box.waitUntilGone();
}

bool AccountSession::hasSeekRow() const
{
    return bool(window.find(Role::Slider, u"Position"_s));
}

void AccountSession::keepScreenshot(const QString &name) const
{
    Screen::save(Screen::grab(window.rect()), name);
}

QStringList spellingsOf(const QString &secret)
{
    const QByteArray percent = QUrl::toPercentEncoding(secret);
    const QByteArray json = QJsonDocument(QJsonArray{secret}).toJson(QJsonDocument::Compact);
    QStringList spellings{
        secret,
        QString::fromLatin1(percent),
        QString::fromLatin1(percent).toLower(),
        QString::fromLatin1(QUrl::toPercentEncoding(QString::fromLatin1(percent))),
        QString::fromUtf8(json.sliced(2, json.size() - 4)),
        QString::fromLatin1(secret.toUtf8().toBase64())};
    // As Qt writes it in the query and in the path of a URL.
    for (const auto mode : {QUrl::PrettyDecoded, QUrl::FullyEncoded}) {
        QUrl url(u"http://h/"_s);
        url.setQuery(secret);
        spellings << url.query(mode);
        url.setPath(u'/' + secret);
        spellings << url.path(mode).mid(1);
    }
    spellings.removeDuplicates();
    return spellings;
}
