#pragma once

#include <QString>
#include <QStringList>

class QMimeData;

/// What the user asked to open: a file or an address on the network.
struct OpenTarget
{
    enum class Kind
    {
        Playlist, ///< a list of channels, which becomes a source
        Film,     ///< has an end: a file
        Live,     ///< goes on until it is stopped
        Unfit,    ///< cannot be opened
    };

    Kind kind = Kind::Unfit;
    /// What names it: the file without its folder, of a playlist without its suffix too, or the
    /// server. Holds no credentials.
    QString title;
    /// Of a playlist its absolute path or its URL, otherwise the URL that plays.
    QString address;
    /// Why it cannot be opened, as a sentence for the user.
    QString problem;
};

/// A word of the command line as an absolute path or a URL. A relative
/// path starts at `folder`; a file that is there goes before a URL that reads the same. A "file:"
/// URL becomes its path. Whether it can be opened is for openTarget() to tell.
QString openAddress(const QString &word, const QString &folder);

/// What the user typed as an absolute path or a URL. What is neither begins with a server's name.
QString typedAddress(const QString &text);

/// The absolute paths and URLs that were dropped or pasted, in their order; empty when there are
/// none.
QStringList openAddresses(const QMimeData &data);

/// Tells what an absolute path or a URL is. A file is told by its suffix and its first bytes: a
/// list of channels is a playlist, the list of an HLS stream plays. A URL is told by its text,
/// since its server may allow one connection: ".m3u", or the "get.php" of an account, is a
/// playlist, ".m3u8" is an HLS stream, the suffix of a film is a film, and everything else is live.
/// Reads up to 64 KiB of a file.
OpenTarget openTarget(const QString &address);

/// The suffixes of files that can be opened, in small letters and without a dot.
QStringList playlistSuffixes();
QStringList filmSuffixes();
