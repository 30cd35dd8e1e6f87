#pragma once

#include "model/SourceConfig.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QStackedWidget;
class XtreamClient;

/// The modal form in which a source is added, edited, tested and deleted. It stores nothing itself:
/// the caller reads config() after acceptance, or deleteRequested after rejection.
class SourceDialog final : public QDialog
{
    Q_OBJECT

public:
    /// `existing` null means a new source.
    SourceDialog(QWidget *parent, const SourceConfig *existing);

    /// Fills the form of a new source with a playlist.
    void fillWithPlaylist(const QString &name, const QString &address);

    /// The record for what the form shows; not validated. The file of a local playlist is copied by
    /// storePlaylistCopy().
    SourceConfig config() const;

    /// The user asked to delete the edited source and confirmed it.
    bool deleteRequested = false;

private Q_SLOTS:
    void onTypeChanged(int index);
    void browseForFile();
    void testConnection();
    void togglePasswordVisibility(bool visible);
    void onDeleteClicked();

private:
    QWidget *buildPlaylistPage();
    QWidget *buildXtreamPage();
    QWidget *buildPasswordRow();
    QWidget *buildSubscriptionPage();
    void fillFrom(const SourceConfig &source);
    void fillForNewSource();

    XtreamClient *testClient = nullptr;
    QString editedName;
    QString userAgent; ///< of the edited source; the form does not show it

    QComboBox *typeCombo = nullptr;
    QStackedWidget *pages = nullptr;
    QLineEdit *m3uNameEdit = nullptr;
    QLineEdit *m3uUrlEdit = nullptr;
    QLineEdit *xtreamNameEdit = nullptr;
    QLineEdit *serverEdit = nullptr;
    QLineEdit *usernameEdit = nullptr;
    QLineEdit *passwordEdit = nullptr;
    QCheckBox *showPasswordCheck = nullptr;
    QComboBox *liveFormatCombo = nullptr;
    QLabel *statusLabel = nullptr;
    QLineEdit *keyEdit = nullptr;
};
