#pragma once

#include "guide/GuideRecords.h"
#include "library/LibraryRecords.h"

#include <QDialog>

#include <optional>

class Guide;
class WrappedLabel;

class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

/// Asks which channel of the guide belongs to a channel of the source: the one that is found by
/// itself, one that the user chooses, or none.
class GuideChannelDialog final : public QDialog
{
    Q_OBJECT

public:
    /// How many channels of the guide are shown at a time.
    static constexpr int mostShown = 100;

    /// `match` is the channel's present match; `correction` is what the user has set before.
    /// `guide` must live as long as the dialog.
    GuideChannelDialog(Guide *guide, LibraryEntry channel, const GuideMatch &match,
                       const std::optional<GuideCorrection> &correction, QWidget *parent);

    /// What the user has chosen; nothing when the channel is to be found by itself.
    std::optional<GuideCorrection> correction() const;

private:
    QWidget *buildConfirmation(const GuideMatch &match);
    QWidget *buildSearch(const QString &text);
    void ask();
    void takeAnswer(const QList<GuideChannel> &channels);
    void showChannels(const QList<GuideChannel> &channels);
    void showState();
    void choose(const QString &guideId);
    QString selectedId() const;

    Guide *guide;
    const LibraryEntry channel;
    QRadioButton *automatic;
    QRadioButton *none;
    QRadioButton *chosen;
    QLineEdit *search;
    QListWidget *list;
    WrappedLabel *note;
    QPushButton *ok = nullptr;
    QString idToSelect; ///< once it is in the list
    QString askedFor;
    bool isAsking = false;
};
