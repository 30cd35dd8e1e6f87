#pragma once

#include <QLabel>

/// A word-wrapping label for plain text that is never clipped: its minimum height is the height of
/// the text at the label's width, so that the window grows with it.
class WrappedLabel final : public QLabel
{
    Q_OBJECT

public:
    explicit WrappedLabel(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// False: form layouts ask for the height at a width other than they assign. The size hints
    /// report the height instead.
    bool hasHeightForWidth() const override { return false; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QSize withWholeText(const QSize &hint) const;
};
