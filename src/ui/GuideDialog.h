#pragma once

#include "library/LibraryRecords.h"

#include <QDialog>
#include <QStringList>

class GuideAddressList;
class WrappedLabel;

class QCheckBox;
class QDoubleSpinBox;
class QProgressBar;
class QPushButton;
struct GuideResult;

/// The settings of one source's programme guide, its update, and what came of that. It stores and
/// fetches nothing itself: the caller reads settings() after acceptance, and updates the guide when
/// the user asks for it.
class GuideDialog final : public QDialog
{
    Q_OBJECT

public:
    /// `isAccount`: the source is an account, which has a guide of its own.
    GuideDialog(const GuideSettings &settings, bool isAccount, QWidget *parent);

    /// What the form shows.
    GuideSettings settings() const;

    /// The addresses that the source's playlist names. They are filled in where there is none.
    void offerPlaylistAddresses(const QStringList &addresses);
    void setUpdating(bool updating);
    /// In percent; -1 when the amount is not known.
    void setProgress(int percent);
    /// What came of the last update.
    void setResult(const GuideResult &result);

Q_SIGNALS:
    void updateRequested(const GuideSettings &settings);
    void cancelRequested();

private:
    QWidget *buildForm();
    QWidget *buildUpdateRow();
    void fillIn();
    void showState();

    const GuideSettings initial;
    QCheckBox *enabledCheck;
    GuideAddressList *addresses;
    QDoubleSpinBox *offset;
    QCheckBox *refreshCheck;
    QPushButton *update;
    QPushButton *cancelUpdate;
    QProgressBar *progress;
    WrappedLabel *resultText;
    bool isUpdating = false;
};
