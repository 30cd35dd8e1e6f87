#include "ui/LoadingOverlay.h"

#include <QBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr int overlayAlpha = 150;

} // namespace

LoadingOverlay::LoadingOverlay(QWidget *covered)
    : QWidget(covered)
{
    setObjectName(u"loadingOverlay"_s);
    setAutoFillBackground(true);
    QPalette colors = palette();
    colors.setColor(QPalette::Window, QColor(0, 0, 0, overlayAlpha));
    setPalette(colors);
    auto *label = new QLabel(tr("Loading..."));
    label->setAlignment(Qt::AlignCenter);
    label->setStyleSheet(u"color: white; font-size: 14pt;"_s);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    fit();
    hide();
}

void LoadingOverlay::fit()
{
    setGeometry(parentWidget()->rect());
}

void LoadingOverlay::beginCatalogFetch(int steps)
{
    pendingFetchSteps += steps;
    if (pendingFetchSteps > 0) {
        fit();
        raise();
        show();
    }
}

void LoadingOverlay::catalogFetchStepDone()
{
    --pendingFetchSteps;
    if (pendingFetchSteps <= 0) {
        pendingFetchSteps = 0;
        hide();
    }
}
