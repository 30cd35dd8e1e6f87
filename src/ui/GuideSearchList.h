#pragma once

#include "guide/GuideRecords.h"

#include <QList>
#include <QString>
#include <QTableWidget>
#include <QTimeZone>

class Guide;

/// Finds programmes by their titles, those that run and those to come, and shows when and where
/// they run. One of its rows is current as soon as there is one.
class GuideSearchList final : public QTableWidget
{
    Q_OBJECT

public:
    explicit GuideSearchList(QWidget *parent = nullptr);

    /// Not owned: it must outlive this, or be replaced; null for none.
    void setGuide(Guide *guide);
    /// Shows what the text finds when the guide has answered; an empty text finds nothing.
    void search(const QString &text);
    /// As if the user had chosen the current row.
    void activateCurrent();

Q_SIGNALS:
    /// The user chose a programme that runs now.
    void entryActivated(const QString &entryId);
    /// The user chose a programme to come.
    void scheduleRequested(const QString &entryId, const GuideProgramme &programme);
    /// The list shows what the text has found.
    void answered();

private:
    void showHits(const QList<GuideHit> &found);

    Guide *guide = nullptr;
    QString wanted;
    QList<GuideHit> hits; ///< of the rows
    QTimeZone zone = QTimeZone::systemTimeZone();
};
