#pragma once

#include <QLabel>

/// A label for plain text of several lines that is never cut: its minimum height is what the text
/// takes at the label's width, so that a window grows with it.
class WrappedLabel final : public QLabel
{
    Q_OBJECT

public:
    explicit WrappedLabel(QWidget *parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;
};
