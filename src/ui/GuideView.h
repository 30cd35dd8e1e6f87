#pragma once

#include "guide/GuideRecords.h"

#include <QDate>
#include <QWidget>

class Guide;
class GuideGrid;
class GuideSearchList;

class QBoxLayout;
class QComboBox;
class QLabel;
class QLineEdit;
class QShortcut;

/// A tab's view of the guide: the grid with the days above it and what the current programme is
/// about below it; in place of the grid, what a search for programmes has found.
class GuideView final : public QWidget
{
    Q_OBJECT

public:
    explicit GuideView(QWidget *parent = nullptr);

    /// Not owned: it must outlive this, or be replaced; null for none.
    void setGuide(Guide *guide);

    GuideGrid &grid() const { return *guideGrid; }
    /// Whether programmes are searched, so that the grid does not show.
    bool isSearching() const;

Q_SIGNALS:
    /// The user chose a programme that a search has found, and that runs now.
    void foundEntryActivated(const QString &entryId);
    /// The user chose a programme that a search has found, and that is to come.
    void scheduleRequested(const QString &entryId, const GuideProgramme &programme);

private:
    QBoxLayout *buildDayRow();
    void buildStrip();
    void buildSearch();

    void showDays();
    void stepDay(int days);
    void showSearch();
    void showFound();
    void showCurrent();
    void askForDescription(const GuideProgramme &programme);

    Guide *guide = nullptr;
    QDate today; ///< as the days name it
    QComboBox *dayCombo;
    QLineEdit *search;
    QShortcut *escape;
    GuideGrid *guideGrid;
    GuideSearchList *results;
    QLabel *strip;       ///< which programme is current; in a search, that none was found
    QLabel *description; ///< of it
    int current = 0;     ///< counts what was current: an answer to another one is out of date
};
