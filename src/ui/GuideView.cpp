#include "ui/GuideView.h"

#include "guide/Guide.h"
#include "ui/ElidedComboBox.h"
#include "ui/ElidedLabel.h"
#include "ui/GuideGrid.h"
#include "ui/GuideSearchList.h"
#include "ui/GuideTexts.h"

#include <QBoxLayout>
#include <QDateTime>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTimeZone>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

QPushButton *addButton(QBoxLayout &row, const QString &name, const QString &text,
                       const QString &spokenName)
{
    auto *button = new QPushButton(text);
    button->setObjectName(name);
    button->setAccessibleName(spokenName);
    button->setToolTip(spokenName);
    row.addWidget(button);
    return button;
}

} // namespace

GuideView::GuideView(QWidget *parent)
    : QWidget(parent)
    , dayCombo(new ElidedComboBox)
    , search(new QLineEdit)
    , escape(new QShortcut(QKeySequence(Qt::Key_Escape), this))
    , guideGrid(new GuideGrid)
    , results(new GuideSearchList)
    , strip(new ElidedLabel)
    , description(new QLabel)
{
    setObjectName(u"guideView"_s);
    guideGrid->setObjectName(u"guideGrid"_s);
    results->setObjectName(u"guideSearchList"_s);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(buildDayRow());
    // Beside the days it would be too narrow for what it asks for.
    layout->addWidget(search);
    layout->addWidget(guideGrid, 1);
    layout->addWidget(results, 1);
    buildStrip();
    layout->addWidget(strip);
    layout->addWidget(description);
    connect(guideGrid, &GuideGrid::daysChanged, this, &GuideView::showDays);
    connect(guideGrid, &GuideGrid::currentChanged, this, &GuideView::showCurrent);
    buildSearch();
    showDays();
    showSearch();
}

QBoxLayout *GuideView::buildDayRow()
{
    auto *row = new QHBoxLayout;
    const QPushButton *now =
        addButton(*row, u"guideNowButton"_s, tr("Now"), tr("Show what runs now"));
    connect(now, &QPushButton::clicked, guideGrid, &GuideGrid::showNow);
    const QPushButton *before =
        addButton(*row, u"guideDayBeforeButton"_s, u"<"_s, tr("Previous day"));
    connect(before, &QPushButton::clicked, this, [this] { stepDay(-1); });
    dayCombo->setObjectName(u"guideDayCombo"_s);
    dayCombo->setAccessibleName(tr("Day"));
    constexpr int shortestDay = 9;
    dayCombo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    dayCombo->setMinimumContentsLength(shortestDay);
    row->addWidget(dayCombo, 1);
    connect(dayCombo, &QComboBox::activated, this,
            [this] { guideGrid->showDay(dayCombo->currentData().toDate()); });
    const QPushButton *after = addButton(*row, u"guideDayAfterButton"_s, u">"_s, tr("Next day"));
    connect(after, &QPushButton::clicked, this, [this] { stepDay(1); });
    return row;
}

/// Of a fixed height, so that the grid does not move when another cell is current.
void GuideView::buildStrip()
{
    constexpr int lines = 3;
    description->ensurePolished();
    QFont bold = strip->font();
    bold.setWeight(QFont::Bold);
    strip->setFont(bold);
    strip->setObjectName(u"guideStrip"_s);
    description->setObjectName(u"guideDescription"_s);
    description->setTextFormat(Qt::PlainText);
    description->setWordWrap(true);
    // A label would align by the script of its text.
    description->setAlignment(
        (isRightToLeft() ? Qt::AlignRight | Qt::AlignAbsolute : Qt::AlignLeading) | Qt::AlignTop);
    description->setFixedHeight(lines * description->fontMetrics().lineSpacing());
}

void GuideView::buildSearch()
{
    search->setObjectName(u"guideSearch"_s);
    search->setPlaceholderText(tr("Search programmes..."));
    search->setAccessibleName(search->placeholderText());
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, search, &QLineEdit::clear);
    connect(search, &QLineEdit::textChanged, this, &GuideView::showSearch);
    connect(search, &QLineEdit::returnPressed, results, &GuideSearchList::activateCurrent);
    connect(results, &GuideSearchList::answered, this, &GuideView::showFound);
    connect(results, &GuideSearchList::entryActivated, this, &GuideView::foundEntryActivated);
    connect(results, &GuideSearchList::scheduleRequested, this, &GuideView::scheduleRequested);
}

void GuideView::setGuide(Guide *newGuide)
{
    guide = newGuide;
    search->clear();
    guideGrid->setGuide(newGuide);
    results->setGuide(newGuide);
}

bool GuideView::isSearching() const
{
    return !search->text().isEmpty();
}

void GuideView::showDays()
{
    const QList<QDate> days = guideGrid->days();
    const bool isOtherDay = std::exchange(today, QDate::currentDate()) != today;
    if (isOtherDay || dayCombo->count() != days.size() ||
        dayCombo->itemData(0).toDate() != days.constFirst()) {
        dayCombo->clear();
        for (const QDate &day : days) {
            dayCombo->addItem(dayText(day, today), day);
        }
    }
    dayCombo->setCurrentIndex(dayCombo->findData(guideGrid->shownDay()));
}

void GuideView::stepDay(int days)
{
    guideGrid->showDay(guideGrid->shownDay().addDays(days));
}

void GuideView::showSearch()
{
    const bool searching = isSearching();
    if (!searching && results->hasFocus()) {
        guideGrid->setFocus();
    }
    results->search(search->text());
    escape->setEnabled(searching);
    guideGrid->setVisible(!searching);
    results->setVisible(searching);
    description->setVisible(!searching);
    showCurrent();
}

void GuideView::showFound()
{
    if (isSearching()) {
        strip->setText(results->rowCount() == 0 ? tr("No programme found.") : QString());
    }
}

void GuideView::showCurrent()
{
    ++current;
    description->clear();
    strip->clear();
    const std::optional<GuideProgramme> programme = guideGrid->currentProgramme();
    if (isSearching() || !programme) {
        return;
    }
    const QString when = spanText(*programme, QTimeZone::systemTimeZone());
    strip->setText(guideGrid->isCurrentInArchive()
                       ? tr("%1  %2 (in the archive)").arg(when, programme->title)
                       : tr("%1  %2").arg(when, programme->title));
    askForDescription(*programme);
}

void GuideView::askForDescription(const GuideProgramme &programme)
{
    constexpr qsizetype longestShown = 1000; // more than there is room for
    if (guide == nullptr) {
        return;
    }
    const QString id = guideGrid->currentId();
    guide->fetchSchedules({id}, programme.start, programme.start + 1,
                          [context = QPointer(this), asked = current, id,
                           at = programme.start](const QHash<QString, GuideSchedule> &answer) {
                              GuideView *self = context;
                              if (self == nullptr || self->current != asked) {
                                  return;
                              }
                              const QList<GuideProgramme> found = answer.value(id).programmes;
                              const qsizetype index = programmeAt(found, at);
                              if (index >= 0) {
                                  self->description->setText(
                                      found.at(index).description.left(longestShown));
                              }
                          });
}
