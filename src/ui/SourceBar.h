#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

class QComboBox;
class QMenu;
class QPushButton;

/// The row above the tabs: the names of the sources, one of them current, and the buttons that add,
/// edit and refresh; at its end the button of the menu. Names are compared exactly; one that is
/// stored twice has two rows.
class SourceBar final : public QWidget
{
    Q_OBJECT

public:
    explicit SourceBar(QWidget *parent = nullptr);

    /// The menu that "More" opens.
    void setMoreMenu(QMenu *menu);

    /// Replaces the list. The first name becomes current, without currentChanged().
    void setNames(const QStringList &names);
    bool isEmpty() const;
    /// -1 when the list is empty.
    int currentIndex() const;
    /// Empty for an index outside the list.
    QString nameAt(int index) const;
    /// The first row of that name; -1 when there is none.
    int indexOf(const QString &name) const;

    void setCurrentIndex(int index);
    /// Appends a name and makes it current.
    void append(const QString &name);
    void rename(int index, const QString &name);
    /// Removes all rows of a name, without currentChanged().
    void remove(const QString &name);

Q_SIGNALS:
    void addRequested();
    void editRequested();
    void refreshRequested();
    /// Another row is current, chosen by the user or by a call that does not say otherwise.
    void currentChanged(int index);

private:
    QComboBox *sourceCombo = nullptr;
    QPushButton *moreButton = nullptr;
};
