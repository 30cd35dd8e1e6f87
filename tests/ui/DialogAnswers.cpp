#include "DialogAnswers.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

QString textOf(const QAbstractButton &button)
{
    QString text = button.text();
    return text.remove(u'&');
}

SeenDialog describe(const QDialog &dialog)
{
    SeenDialog seen;
    seen.title = dialog.windowTitle();
    const auto *box = qobject_cast<const QMessageBox *>(&dialog);
    if (box != nullptr) {
        seen.text = box->text();
        for (const QAbstractButton *button : box->buttons()) {
            seen.buttons << textOf(*button);
        }
        seen.buttons.sort();
    }
    return seen;
}

} // namespace

DialogAnswers::DialogAnswers()
{
    qApp->installEventFilter(this);
}

void DialogAnswers::next(std::function<void(QDialog &)> answer)
{
    answers.append(std::move(answer));
}

void DialogAnswers::nextClicks(const QString &button)
{
    next([button](QDialog &dialog) {
        if (!click(dialog, button)) {
            dialog.reject();
        }
    });
}

void DialogAnswers::nextForm(int type, const QList<std::pair<QString, QString>> &fields)
{
    next([type, fields](QDialog &dialog) {
        dialog.findChild<QComboBox *>(u"typeCombo"_s)->setCurrentIndex(type);
        for (const auto &[name, text] : fields) {
            dialog.findChild<QLineEdit *>(name)->setText(text);
        }
        click(dialog, u"OK"_s);
    });
}

void DialogAnswers::nextMenu(std::function<void(QMenu &)> answer)
{
    menuAnswers.append(std::move(answer));
}

void DialogAnswers::clear()
{
    answers.clear();
    menuAnswers.clear();
    seenDialogs.clear();
}

QAbstractButton *buttonOf(const QWidget &window, const QString &text)
{
    const auto buttons = window.findChildren<QAbstractButton *>();
    const auto found = std::find_if(buttons.begin(), buttons.end(), [&](QAbstractButton *button) {
        return textOf(*button) == text;
    });
    return found != buttons.end() ? *found : nullptr;
}

bool DialogAnswers::click(const QDialog &dialog, const QString &button)
{
    QAbstractButton *found = buttonOf(dialog, button);
    if (found != nullptr) {
        found->click();
    }
    return found != nullptr;
}

bool DialogAnswers::eventFilter(QObject *watched, QEvent *event)
{
    // Queued in both cases: the answer must come from inside the dialog's own event loop.
    if (event->type() == QEvent::Show) {
        if (auto *dialog = qobject_cast<QDialog *>(watched); dialog && dialog->isModal()) {
            QMetaObject::invokeMethod(
                dialog, [this, dialog] { answerDialog(*dialog); }, Qt::QueuedConnection);
        } else if (auto *menu = qobject_cast<QMenu *>(watched)) {
            QMetaObject::invokeMethod(
                menu, [this, menu] { answerMenu(*menu); }, Qt::QueuedConnection);
        }
    }
    return QObject::eventFilter(watched, event);
}

void DialogAnswers::answerDialog(QDialog &dialog)
{
    if (QApplication::activeModalWidget() != &dialog) {
        return;
    }
    seenDialogs.append(describe(dialog));
    if (answers.isEmpty()) {
        dialog.reject();
        return;
    }
    const auto answer = answers.takeFirst();
    answer(dialog);
}

void DialogAnswers::answerMenu(QMenu &menu)
{
    const QPointer<QMenu> alive(&menu);
    if (!menuAnswers.isEmpty()) {
        const auto answer = menuAnswers.takeFirst();
        answer(menu);
    }
    if (alive) {
        alive->close();
    }
}
