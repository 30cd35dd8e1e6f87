#pragma once

#include <QPlainTextEdit>
#include <QTextDocument>
#include <QTextOption>

/// Where the layout goes from right to left, so do lines begin at the right, in whatever script. To
/// be called before the edit has a text.
inline void alignWithLayout(QPlainTextEdit *edit)
{
    if (edit->isRightToLeft()) {
        QTextOption option = edit->document()->defaultTextOption();
        option.setAlignment(Qt::AlignRight);
        edit->document()->setDefaultTextOption(option);
    }
}
