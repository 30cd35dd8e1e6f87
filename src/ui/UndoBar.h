#pragma once

#include <QWidget>

#include <functional>

class QLabel;
class QPushButton;
class QTimer;

/// One line that tells what was removed, with a button that takes it back. It shows for six
/// seconds, and on while the pointer or the keyboard focus is on it. Hidden at first. It lies over
/// the lower edge of its parent, as wide as that.
class UndoBar final : public QWidget
{
    Q_OBJECT

public:
    explicit UndoBar(QWidget *parent);

    /// Shows `text`, in place of what showed before. `undo` is called at most once, when the user
    /// asks for it; Ctrl+Z does, too, while the bar shows.
    void offer(const QString &text, std::function<void()> undo);
    /// Hides the bar; what was removed stays so.
    void dismiss();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fit();
    void takeBack();
    void dismissUnlessUsed();

    QLabel *label;
    QPushButton *button;
    QTimer *timer;
    std::function<void()> takesBack;
};
