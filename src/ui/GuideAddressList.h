#pragma once

#include <QStringList>
#include <QWidget>

class QListWidget;
class QListWidgetItem;
class QPushButton;

/// The addresses of a source's guides in the order of preference, and the buttons that change them.
class GuideAddressList final : public QWidget
{
    Q_OBJECT

public:
    explicit GuideAddressList(QWidget *parent = nullptr);

    /// Without empty ones, each one once.
    QStringList addresses() const;
    void setAddresses(const QStringList &shown);

    /// What the source itself names; accountGuideAddress for the account's own guide. A button adds
    /// those that are missing.
    void setOwnAddresses(const QStringList &own);
    /// Adds the source's own addresses when the list is empty.
    void fillIn();

Q_SIGNALS:
    /// Another address, or another order.
    void changed();

private:
    QWidget *buildButtons();
    QListWidgetItem *append(const QString &address);
    void addOwn();
    void addAddress();
    void addFile();
    void removeCurrent();
    void move(int distance);
    void takeEdited(QListWidgetItem *item);
    void dropEmpty();
    void report();
    bool lacksOwn() const;

    QListWidget *list;
    QPushButton *ownButton = nullptr;
    QPushButton *removeButton = nullptr;
    QPushButton *upButton = nullptr;
    QPushButton *downButton = nullptr;
    QStringList ownAddresses;
};
