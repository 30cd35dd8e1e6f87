#pragma once

#include <QWidget>

/// The translucent cover over the browse tabs that shows "Loading..." while loading steps are
/// outstanding.
class LoadingOverlay final : public QWidget
{
    Q_OBJECT

public:
    /// Hidden at first. Lies over `covered`, its parent.
    explicit LoadingOverlay(QWidget *covered);

    /// Takes the size that the parent has now. It does not follow a later resize.
    void fit();
    /// Adds `steps` outstanding steps; the overlay shows while any is left.
    void beginCatalogFetch(int steps);
    /// Takes one step off; more calls than steps do no harm.
    void catalogFetchStepDone();

private:
    qint32 pendingFetchSteps = 0;
};
