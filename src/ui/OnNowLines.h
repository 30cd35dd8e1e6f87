#pragma once

#include "guide/GuideRecords.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTimer>

class Guide;

/// What runs on the channels that a view shows: asked for the visible ones only, and again with
/// each minute, in which a programme may end. GUI thread only.
class OnNowLines final : public QObject
{
    Q_OBJECT

public:
    /// The guide is not owned, and must outlive this.
    OnNowLines(Guide *guide, QObject *parent);

    /// The channels that are visible now, by their entries' ids.
    void setVisible(const QStringList &entryIds);
    /// What is known of a channel now; nothing until the guide has answered.
    std::optional<OnNow> find(const QString &entryId) const;

Q_SIGNALS:
    /// find() may say something else now.
    void changed();

private:
    void fetch(const QStringList &entryIds);
    void beginMinute();

    Guide *guide;
    QHash<QString, OnNow> known;
    QSet<QString> asked; ///< in this minute
    QStringList visible;
    QTimer minute;
};

/// "20:15 Title": what runs, otherwise what comes next; empty without either.
QString onNowText(const OnNow &onNow);
/// How much of what runs is over at that time, in percent.
int onNowPercent(const OnNow &onNow, qint64 at);
/// What runs and what comes next, with times and descriptions, as rich text.
QString onNowToolTip(const OnNow &onNow);
