#include "ui/StreamInfoDialog.h"

#include "player/VlcPlayer.h"
#include "ui/AlignWithLayout.h"

#include <QBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>

StreamInfoDialog::StreamInfoDialog(VlcPlayer *player, QWidget *parent)
    : QDialog(parent)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Stream Info"));
    setMinimumSize(440, 340);
    auto *text = new QPlainTextEdit(player->mediaInfoText());
    text->setReadOnly(true);
    alignWithLayout(text);
    text->setTabChangesFocus(true);
    text->setAccessibleName(tr("Stream Info"));
    auto *refresh = new QPushButton(tr("Refresh"));
    connect(refresh, &QPushButton::clicked, text,
            [player, text] { text->setPlainText(player->mediaInfoText()); });
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(text, 1);
    layout->addWidget(refresh);
}
