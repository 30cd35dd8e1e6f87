#include "desktop/OpenTarget.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QRegularExpression>
#include <QSysInfo>
#include <QUrl>
#include <QUrlQuery>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 headBytes = 64LL * 1024;

OpenTarget unfit(const QString &title, const QString &problem)
{
    return {OpenTarget::Kind::Unfit, title, {}, problem};
}

/// The scheme in small letters; empty for a path. One letter is a drive of Windows.
QString schemeOf(const QString &text)
{
    // libVLC reads "access/demux://".
    static const QRegularExpression scheme(u"^([a-z][a-z0-9+.\\-]+)(?:/\\w+)?:(?://|(?<=file:)/)"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    return scheme.match(text).captured(1).toLower();
}

/// Schemes that libVLC plays from a network. Others read devices, files or the program itself.
bool isNetworkScheme(const QString &scheme)
{
    static const QStringList schemes{u"http"_s,  u"https"_s, u"rtsp"_s, u"rtsps"_s, u"rtmp"_s,
                                     u"rtmps"_s, u"rtp"_s,   u"udp"_s,  u"srt"_s,   u"rist"_s,
                                     u"mms"_s,   u"mmsh"_s,  u"mmst"_s, u"tcp"_s,   u"ftp"_s,
                                     u"ftps"_s,  u"ftpes"_s, u"sftp"_s, u"smb"_s};
    return schemes.contains(scheme);
}

bool isFileServer(const QString &scheme)
{
    return scheme == "smb"_L1 || scheme.startsWith("ftp"_L1) || scheme == "sftp"_L1;
}

/// The path of a "file:" URL; empty when it has none.
QString pathOf(const QString &fileUrl)
{
    QUrl url(fileUrl, QUrl::TolerantMode);
    const QString host = url.host();
    if (host.compare("localhost"_L1, Qt::CaseInsensitive) == 0 ||
        host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0) {
        url.setHost({});
    }
    return url.toLocalFile();
}

/// Whether these are the first bytes of a playlist or of the list of an HLS stream.
bool isList(const QByteArray &head)
{
    const QByteArrayView text =
        QByteArrayView(head).sliced(head.startsWith("\xef\xbb\xbf") ? 3 : 0);
    const QByteArrayView start = text.trimmed();
    return start.startsWith("#EXTM3U") || start.startsWith("#EXTINF");
}

/// The tags that every list of an HLS stream has one of, and no list of channels.
bool isStreamList(const QByteArray &head)
{
    return head.contains("#EXT-X-TARGETDURATION") || head.contains("#EXT-X-STREAM-INF");
}

OpenTarget fileTarget(const QString &path)
{
    const QFileInfo info(path);
    const QString title = info.fileName().simplified();
    if (path.isEmpty() || !info.exists()) {
        return unfit(title, QCoreApplication::translate("OpenTarget", "The file does not exist."));
    }
    if (info.isDir()) {
        return unfit(title, QCoreApplication::translate("OpenTarget", "It is a folder."));
    }
    const QString url = QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded());
    if (!info.isFile()) {
        // What comes through a pipe cannot be read twice.
        return {OpenTarget::Kind::Live, title, url, {}};
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return unfit(title, file.errorString());
    }
    const QByteArray head = file.read(headBytes);
    const bool isNamedList = playlistSuffixes().contains(info.suffix().toLower());
    if ((isNamedList || isList(head)) && !isStreamList(head)) {
        return {OpenTarget::Kind::Playlist, info.completeBaseName().simplified(), path, {}};
    }
    return {OpenTarget::Kind::Film, title, url, {}};
}

/// The server's name, or what stands in its place.
QString serverOf(const QString &text, const QUrl &url)
{
    static const QRegularExpression authority(u"://(?:[^/?#]*@)?([^/?#]*)"_s);
    return url.host().isEmpty() ? authority.match(text).captured(1) : url.host();
}

/// What an account's address for its playlist looks like.
bool isAccountPlaylist(const QUrl &url)
{
    return url.path().endsWith("/get.php"_L1, Qt::CaseInsensitive) &&
           QUrlQuery(url).queryItemValue(u"type"_s).startsWith("m3u"_L1, Qt::CaseInsensitive);
}

OpenTarget urlTarget(const QString &text, const QString &scheme)
{
    const QUrl url(text, QUrl::TolerantMode);
    const QString server = serverOf(text, url);
    if (!isNetworkScheme(scheme)) {
        return unfit(server,
                     QCoreApplication::translate(
                         "OpenTarget", "Addresses that begin with \"%1:\" are not supported.")
                         .arg(scheme));
    }
    if (server.isEmpty()) {
        return unfit(text.left(scheme.size()),
                     QCoreApplication::translate("OpenTarget", "The address names no server."));
    }
    const QString fileName = url.fileName(QUrl::FullyDecoded);
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    const bool isWeb = scheme == "http"_L1 || scheme == "https"_L1;
    if (isWeb && (suffix == "m3u"_L1 || isAccountPlaylist(url))) {
        return {OpenTarget::Kind::Playlist, server, text, {}};
    }
    // Only what has such a suffix is surely a name: a path may end in a password.
    if (filmSuffixes().contains(suffix)) {
        return {OpenTarget::Kind::Film, fileName.simplified(), text, {}};
    }
    return {
        isFileServer(scheme) ? OpenTarget::Kind::Film : OpenTarget::Kind::Live, server, text, {}};
}

} // namespace

QString openAddress(const QString &word, const QString &folder)
{
    const QString path = QDir(folder).absoluteFilePath(QDir::fromNativeSeparators(word));
    if (word.isEmpty() || QFileInfo::exists(path)) {
        return word.isEmpty() ? word : path;
    }
    const QString text = word.trimmed();
    const QString scheme = schemeOf(text);
    if (scheme == "file"_L1) {
        return pathOf(text);
    }
    return scheme.isEmpty() ? path : text;
}

QString typedAddress(const QString &text)
{
    const QString typed = text.trimmed();
    const bool isWhole = QDir::isAbsolutePath(typed) || !schemeOf(typed).isEmpty();
    return isWhole ? openAddress(typed, QDir::rootPath()) : "http://"_L1 + typed;
}

QStringList openAddresses(const QMimeData &data)
{
    QStringList addresses;
    if (data.hasUrls()) {
        const QList<QUrl> urls = data.urls();
        for (const QUrl &url : urls) {
            addresses << openAddress(QString::fromLatin1(url.toEncoded()), {});
        }
    } else if (data.hasText()) {
        const QStringList lines = data.text().split(u'\n', Qt::SkipEmptyParts);
        for (const QString &line : lines) {
            if (!schemeOf(line.trimmed()).isEmpty()) {
                addresses << openAddress(line.trimmed(), {});
            }
        }
    }
    return addresses;
}

OpenTarget openTarget(const QString &address)
{
    const QString scheme = schemeOf(address);
    return scheme.isEmpty() ? fileTarget(address) : urlTarget(address, scheme);
}

QStringList playlistSuffixes()
{
    return {u"m3u"_s, u"m3u8"_s};
}

QStringList filmSuffixes()
{
    return {u"mp4"_s, u"m4v"_s,  u"mkv"_s,  u"webm"_s, u"avi"_s, u"mov"_s,  u"wmv"_s,
            u"asf"_s, u"flv"_s,  u"mpg"_s,  u"mpeg"_s, u"vob"_s, u"m2ts"_s, u"ogv"_s,
            u"ogm"_s, u"3gp"_s,  u"divx"_s, u"mp3"_s,  u"m4a"_s, u"aac"_s,  u"flac"_s,
            u"ogg"_s, u"opus"_s, u"wav"_s,  u"wma"_s};
}
