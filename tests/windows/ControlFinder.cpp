// A plugin that Qt itself loads into the program under test (QT_QPA_GENERIC_PLUGINS=controlfinder).
// It answers over the local socket that VANTIRO_TEST_CONTROLS names where a control is on the
// screen.
//
// A request is a line: the object name of a widget, or "name\ttext" for an entry of a list, a table
// or a tab bar. The answer is a line "x y width height" in pixels of the screen, or an empty one
// while no such control is visible.

#include <QAbstractItemView>
#include <QApplication>
#include <QGenericPlugin>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

QRect onScreen(const QWidget &widget, const QRect &part)
{
    const qreal ratio = widget.devicePixelRatioF();
    return {widget.mapToGlobal(part.topLeft()) * ratio, part.size() * ratio};
}

QRect entryOnScreen(const QAbstractItemView &view, const QString &text)
{
    const QAbstractItemModel &model = *view.model();
    const QModelIndexList found = model.match(model.index(0, 0, view.rootIndex()), Qt::DisplayRole,
                                              text, 1, Qt::MatchExactly);
    const QRect place = found.isEmpty() ? QRect() : view.visualRect(found.constFirst());
    const QRect visible = place.intersected(view.viewport()->rect());
    return visible.isEmpty() ? QRect() : onScreen(*view.viewport(), visible);
}

QRect tabOnScreen(const QTabBar &bar, const QString &text)
{
    for (int index = 0; index < bar.count(); ++index) {
        if (bar.tabText(index) == text)
            return onScreen(bar, bar.tabRect(index));
    }
    return {};
}

QRect find(const QString &name, const QString &text)
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (const QWidget *widget : widgets) {
        if (widget->objectName() != name || !widget->isVisible())
            continue;
        if (text.isEmpty())
            return onScreen(*widget, widget->rect());
        if (const auto *view = qobject_cast<const QAbstractItemView *>(widget))
            return entryOnScreen(*view, text);
        if (const auto *tabs = qobject_cast<const QTabWidget *>(widget))
            return tabOnScreen(*tabs->tabBar(), text);
    }
    return {};
}

QByteArray answer(const QByteArray &request)
{
    const QStringList parts = QString::fromUtf8(request).trimmed().split(u'\t');
    const QRect place = find(parts.constFirst(), parts.value(1));
    if (place.isEmpty())
        return "\n"_ba;
    return u"%1 %2 %3 %4\n"_s.arg(place.x())
        .arg(place.y())
        .arg(place.width())
        .arg(place.height())
        .toUtf8();
}

/// Listens once the program runs its event loop.
class ControlFinder final : public QObject
{
    Q_OBJECT

public:
    ControlFinder()
    {
        connect(&server, &QLocalServer::newConnection, this, [this] {
            QLocalSocket *client = server.nextPendingConnection();
            connect(client, &QLocalSocket::disconnected, client, &QObject::deleteLater);
            connect(client, &QLocalSocket::readyRead, client, [client] {
                while (client->canReadLine())
                    client->write(answer(client->readLine()));
            });
        });
        server.listen(qEnvironmentVariable("VANTIRO_TEST_CONTROLS"));
    }

private:
    QLocalServer server;
};

} // namespace

class ControlFinderPlugin final : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "controlfinder.json")

public:
    QObject *create(const QString & /*key*/, const QString & /*arguments*/) override
    {
        return new ControlFinder;
    }
};

#include "ControlFinder.moc"
