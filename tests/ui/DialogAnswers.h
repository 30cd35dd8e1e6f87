#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

class QAbstractButton;
class QDialog;
class QMenu;

/// The button of that text in a window, whatever its key mark; null when there is none.
QAbstractButton *buttonOf(const QWidget &window, const QString &text);

/// What a modal dialog showed at the moment when it was answered.
struct SeenDialog
{
    QString title;
    QString text;        ///< of a message box; empty for other dialogs
    QStringList buttons; ///< their texts without key marks, sorted
};

/// Answers modal dialogs and menus as a user would: each one that opens is answered once its own
/// event loop runs, by the next answer in the queue. A dialog that no answer waits for is
/// rejected, so that no test hangs; seen() tells.
class DialogAnswers final : public QObject
{
    Q_OBJECT

public:
    DialogAnswers();

    /// Runs `answer` on the next dialog. It must end the dialog, by a button or accept().
    void next(std::function<void(QDialog &)> answer);
    /// Clicks the button of that text in the next dialog.
    void nextClicks(const QString &button);
    /// Fills fields of the next source form, by their names, and clicks OK.
    void nextForm(int type, const QList<std::pair<QString, QString>> &fields);
    /// Runs `answer` on the next menu, which is closed afterwards.
    void nextMenu(std::function<void(QMenu &)> answer);

    /// The modal dialogs so far, in the order of their opening.
    const QList<SeenDialog> &seen() const { return seenDialogs; }
    qsizetype waiting() const { return answers.size() + menuAnswers.size(); }
    /// Forgets what was seen and the answers that still wait.
    void clear();

    /// Clicks the button of that text; false when there is none.
    static bool click(const QDialog &dialog, const QString &button);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void answerDialog(QDialog &dialog);
    void answerMenu(QMenu &menu);

    QList<std::function<void(QDialog &)>> answers;
    QList<std::function<void(QMenu &)>> menuAnswers;
    QList<SeenDialog> seenDialogs;
};
