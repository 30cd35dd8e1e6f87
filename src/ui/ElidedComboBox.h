#pragma once

#include <QComboBox>

/// A combo box whose items may be longer than its maximum width: it shows what fits of the current
/// one, with an ellipsis, and the whole text in a tool tip.
class ElidedComboBox final : public QComboBox
{
    Q_OBJECT

public:
    using QComboBox::QComboBox;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString shownText() const;
};
