#pragma once

#include "WindowFixture.h"

#include <QByteArray>
#include <QColor>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

class QListWidget;

/// The window with the Movies grid of an account on screen, empty at first. Its scroll bar always
/// shows, so that filling the grid leaves the viewport as it is.
class PosterWindow
{
public:
    PosterWindow();

    /// Opens the window, or closes it and opens a new one over the same profile.
    void open();
    WindowFixture &fixture() { return windowFixture; }
    MainWindow &window() const { return windowFixture.window(); }
    QListWidget &grid() const;
    /// The grid of the other poster tab, not on screen before showOtherGrid().
    QListWidget &otherGrid() const;
    void showOtherGrid() const;

    /// Fills a grid with one entry per poster URL; the pass over the visible ones comes later, from
    /// the event loop.
    void fill(const QStringList &urls) const;
    void fill(QListWidget &list, const QStringList &urls) const;
    /// Downloads of posters that are under way.
    int downloads() const;
    /// Waits until the pass after fill() has run and no download is under way.
    [[nodiscard]] bool settle() const;

    /// The colour in the middle of a row's poster.
    QColor color(int row) const;
    QColor color(const QListWidget &list, int row) const;
    bool showsPlaceholder(int row) const;
    bool wasAskedFor(int row) const;

private:
    WindowFixture windowFixture;
};

/// Rows that lie within 400 pixels of the visible part, by looking at every one of them.
QList<int> rowsNearView(const QListWidget &grid);

/// A picture of 14 x 21 pixels in one colour.
QByteArray pngOf(const QColor &color);
HttpReply imageReply(const QByteArray &body, const QByteArray &contentType = "image/png");
/// Waits for HttpServer::release().
HttpReply heldImage(const QByteArray &body);
