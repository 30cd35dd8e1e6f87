#pragma once

#include <QDialog>

class VlcPlayer;

/// What is known of the stream when it opens or is refreshed. Not modal; deletes itself when it is
/// closed.
class StreamInfoDialog final : public QDialog
{
    Q_OBJECT

public:
    /// `player` is not owned and must outlive the dialog.
    StreamInfoDialog(VlcPlayer *player, QWidget *parent);
};
