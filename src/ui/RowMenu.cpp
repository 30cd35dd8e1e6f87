#include "ui/RowMenu.h"

#include <QAbstractItemView>
#include <QContextMenuEvent>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

class RowMenu final : public QObject
{
public:
    RowMenu(QAbstractItemView *list, RowMenuBuilder fillMenu)
        : QObject(list)
        , view(list)
        , build(std::move(fillMenu))
    {
        // The pointer's event comes to the viewport, that of the menu key to the list.
        view->viewport()->installEventFilter(this);
        view->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::ContextMenu) {
            return QObject::eventFilter(watched, event);
        }
        const auto &request = *static_cast<QContextMenuEvent *>(event);
        const QWidget &viewport = *view->viewport();
        if (request.reason() != QContextMenuEvent::Keyboard) {
            const QPoint place = viewport.mapFromGlobal(request.globalPos());
            open(view->indexAt(place), request.globalPos());
        } else {
            const QModelIndex index = view->currentIndex();
            view->scrollTo(index);
            open(index, viewport.mapToGlobal(view->visualRect(index).center()));
        }
        return true;
    }

private:
    void open(const QModelIndex &index, const QPoint &place)
    {
        openRowMenu(view, place, [&](QMenu &menu) { build(menu, index); });
    }

    QAbstractItemView *view;
    RowMenuBuilder build;
};

} // namespace

void addRowMenu(QAbstractItemView *view, const RowMenuBuilder &build)
{
    new RowMenu(view, build);
}

void openRowMenu(QWidget *widget, const QPoint &globalPlace,
                 const std::function<void(QMenu &menu)> &build)
{
    auto *menu = new QMenu(widget);
    menu->setObjectName(u"rowMenu"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    build(*menu);
    if (menu->isEmpty()) {
        delete menu;
    } else {
        menu->popup(globalPlace);
    }
}
