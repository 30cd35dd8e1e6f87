#pragma once

#include <QComboBox>

/// A combo box that elides the current item when it is wider than the box, and shows the whole text
/// in a tool tip.
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
