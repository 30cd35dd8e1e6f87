#pragma once

#include <QComboBox>

class QPainter;

/// A combo box that elides the current item when it is wider than the box, and shows the whole text
/// in a tool tip. It draws its own arrow, which the theme's style sheet leaves out.
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
    void paintArrow(QPainter &painter, const QRect &area) const;
};
