#pragma once

#include <QLabel>

/// A label for plain text of several lines that is never cut: its minimum height is what the text
/// takes at the label's width, so that a window grows with it.
class WrappedLabel final : public QLabel
{
    Q_OBJECT

public:
    explicit WrappedLabel(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// False: form layouts ask for the height at another width than they give. The hints tell it.
    bool hasHeightForWidth() const override { return false; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QSize withWholeText(const QSize &hint) const;
};
