#include "ui/OnNowLines.h"

#include "guide/Guide.h"
#include "ui/GuideTexts.h"

#include <QCoreApplication>
#include <QDateTime>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 minuteMs = 60'000;
constexpr qsizetype longestDescription = 600;

QString toolTipPart(const QString &heading, const GuideProgramme &programme)
{
    QString text = "<p><b>"_L1 + heading.toHtmlEscaped() + "</b><br>"_L1 +
                   spanText(programme, QTimeZone::systemTimeZone()).toHtmlEscaped() + ' '_L1 +
                   programme.title.toHtmlEscaped();
    if (!programme.description.isEmpty()) {
        QString description = programme.description.left(longestDescription);
        if (description.size() < programme.description.size()) {
            description += u'\u2026';
        }
        text += "<br>"_L1 + description.toHtmlEscaped();
    }
    return text + "</p>"_L1;
}

} // namespace

OnNowLines::OnNowLines(Guide *openGuide, QObject *parent)
    : QObject(parent)
    , guide(openGuide)
    , minute(this)
{
    minute.setObjectName(u"minuteTimer"_s);
    minute.setSingleShot(true);
    connect(&minute, &QTimer::timeout, this, &OnNowLines::beginMinute);
    // What was known stays until the answer replaces it, so that the lines do not flicker.
    connect(guide, &Guide::changed, this, &OnNowLines::beginMinute);
}

void OnNowLines::setVisible(const QStringList &entryIds)
{
    visible = entryIds;
    QStringList missing;
    for (const QString &id : entryIds) {
        if (!asked.contains(id)) {
            missing << id;
        }
    }
    fetch(missing);
}

std::optional<OnNow> OnNowLines::find(const QString &entryId) const
{
    const auto found = known.constFind(entryId);
    return found != known.constEnd() ? std::optional(*found) : std::nullopt;
}

void OnNowLines::fetch(const QStringList &entryIds)
{
    if (!guide->isOpen() || visible.isEmpty()) {
        minute.stop();
        return;
    }
    if (!minute.isActive()) {
        const qint64 over = QDateTime::currentMSecsSinceEpoch() % minuteMs;
        minute.start(static_cast<int>(minuteMs - over));
    }
    if (entryIds.isEmpty()) {
        return;
    }
    asked.unite({entryIds.cbegin(), entryIds.cend()});
    guide->fetchOnNow(entryIds, QDateTime::currentSecsSinceEpoch(),
                      [this, entryIds](const QHash<QString, OnNow> &answer) {
                          for (const QString &id : entryIds) {
                              known.remove(id);
                          }
                          known.insert(answer);
                          Q_EMIT changed();
                      });
}

/// Asks again for what is visible, and forgets the rest.
void OnNowLines::beginMinute()
{
    asked.clear();
    if (known.size() > visible.size()) {
        QHash<QString, OnNow> kept;
        for (const QString &id : std::as_const(visible)) {
            if (const auto found = find(id)) {
                kept.insert(id, *found);
            }
        }
        known = kept;
    }
    fetch(visible);
    Q_EMIT changed();
}

QString onNowText(const OnNow &onNow)
{
    const auto &shown = onNow.now ? onNow.now : onNow.next;
    return shown ? clockText(shown->start, QTimeZone::systemTimeZone()) + ' '_L1 + shown->title
                 : QString();
}

int onNowPercent(const OnNow &onNow, qint64 at)
{
    constexpr qint64 whole = 100;
    if (!onNow.now) {
        return 0;
    }
    const qint64 length = std::max<qint64>(1, onNow.now->stop - onNow.now->start);
    return static_cast<int>(std::clamp((at - onNow.now->start) * whole / length, 0LL, whole));
}

QString onNowToolTip(const OnNow &onNow)
{
    QString text;
    if (onNow.now) {
        text += toolTipPart(QCoreApplication::translate("OnNow", "Now"), *onNow.now);
    }
    if (onNow.next) {
        text += toolTipPart(QCoreApplication::translate("OnNow", "Next"), *onNow.next);
    }
    if (!text.isEmpty() && onNow.entry.match.rule == GuideMatch::Rule::Suggestion) {
        text += "<p><i>"_L1 +
                QCoreApplication::translate("OnNow", "This guide channel is a suggestion.")
                    .toHtmlEscaped() +
                "</i></p>"_L1;
    }
    return text;
}
