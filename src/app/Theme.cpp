#include "app/Theme.h"

#include <QApplication>
#include <QFile>
#include <QPalette>

using namespace Qt::StringLiterals;

namespace {

QPalette darkPalette()
{
    const QColor window(0x1e2026);
    const QColor mainText(0xe2e4e9);
    const QColor mutedText(0x9498a3);
    const QColor raised(0x2e303a);
    const QColor accent(0x3b82f6);

    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, mainText);
    palette.setColor(QPalette::Base, QColor(0x262830));
    palette.setColor(QPalette::AlternateBase, raised);
    palette.setColor(QPalette::ToolTipBase, raised);
    palette.setColor(QPalette::ToolTipText, mainText);
    palette.setColor(QPalette::Text, mainText);
    palette.setColor(QPalette::Button, raised);
    palette.setColor(QPalette::ButtonText, mainText);
    palette.setColor(QPalette::BrightText, Qt::red);
    palette.setColor(QPalette::Link, accent);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, mutedText);

    palette.setColor(QPalette::Disabled, QPalette::Text, mutedText);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, mutedText);
    return palette;
}

QString styleSheetText()
{
    QFile file(u":/theme.qss"_s);
    const bool opened = file.open(QIODevice::ReadOnly);
    Q_ASSERT(opened);
    return opened ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

void Theme::apply(QApplication &app)
{
    // The linker drops resources of a static library that nothing references.
    Q_INIT_RESOURCE(theme);
    QApplication::setStyle(u"Fusion"_s);
    QApplication::setPalette(darkPalette());
    app.setStyleSheet(styleSheetText());
}
