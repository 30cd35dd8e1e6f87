#pragma once

#include <QString>

#include <functional>

class QPainter;
class QRect;
struct MediaItem;
struct Progress;

/// What the library says of an entry, as a view shows it.
struct EntryMark
{
    bool favorite = false;
    bool watched = false;
    /// How far it was watched; 0 when there is nothing to continue.
    int percent = 0;

    bool isEmpty() const { return !favorite && !watched && percent == 0; }
};

/// What the library says of an entry.
using MarkOfEntry = std::function<EntryMark(const MediaItem &)>;

/// How far the entry was watched; 0 when there is nothing to continue, or its length is unknown.
int percentOf(const Progress &row);

/// What a screen reader says of a mark; empty when there is none.
QString describeMark(const EntryMark &mark);

/// @name Painting marks
/// Each paints inside `area`, in colors that show on pictures and on the theme's background.
/// @{

/// The width and height of the star and of the check mark, in pixels.
inline constexpr int entryMarkSize = 16;

/// A star of a favorite.
void paintStar(QPainter &painter, const QRect &area);
/// A check mark of what was watched to its end.
void paintCheckMark(QPainter &painter, const QRect &area);
/// A bar as wide as `area`, at its lower edge.
void paintProgressBar(QPainter &painter, const QRect &area, int percent);
/// @}
