#pragma once

#include <QLabel>

/// A one-line label for plain text. It elides what is wider than the label and shows the whole text
/// in a tool tip; its minimum width is 0. text() is the whole text.
class ElidedLabel final : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(const QString &text = {}, QWidget *parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString shownText() const;
};
