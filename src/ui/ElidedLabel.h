#pragma once

#include <QLabel>

/// A label for one line of plain text that may be longer than its place. It takes the width that it
/// is given, shows what fits with an ellipsis, and the whole text in a tool tip. text() is the
/// whole text.
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
