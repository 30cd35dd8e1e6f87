#pragma once

#include "guide/GuideImport.h"
#include "support/TestFiles.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QTemporaryDir>

/// A guide of a test, stored as an update stores it. Its source is a playlist.
class StoredGuide final
{
public:
    /// "2026-03-01 18:00" in UTC: the time at which the guide is made. Programmes within a week
    /// before an archive's end and a week after it are stored.
    static constexpr qint64 now = 1'772'388'000;
    static constexpr qint64 hour = 3600;
    static constexpr qint64 day = 24 * hour;

    QString path() const { return folder.filePath(QStringLiteral("guide.sqlite")); }

    /// Adds a channel of the playlist; its entry's id is its address. `attributes` stand in its
    /// line, for instance `tvg-id="one"`.
    void addEntry(const QString &address, const QString &name, const QString &attributes = {})
    {
        playlist += "#EXTINF:-1 " + attributes.toUtf8() + ',' + name.toUtf8() + '\n' +
                    address.toUtf8() + '\n';
    }

    /// Declares a channel of the guide.
    void addChannel(const QString &id, const QString &name)
    {
        guide += "<channel id=\"" + escaped(id) + "\"><display-name>" + escaped(name) +
                 "</display-name></channel>\n";
    }

    /// Seconds since the epoch; without `stop` the programme has no end.
    void addProgramme(const QString &channel, qint64 start, qint64 stop, const QString &title,
                      const QString &description = {})
    {
        guide += "<programme channel=\"" + escaped(channel) + "\" start=\"" + timeText(start) + '"';
        if (stop != 0) {
            guide += " stop=\"" + timeText(stop) + '"';
        }
        guide += "><title>" + escaped(title) + "</title>";
        if (!description.isEmpty()) {
            guide += "<desc>" + escaped(description) + "</desc>";
        }
        guide += "</programme>\n";
    }

    QByteArray playlistText() const { return "#EXTM3U\n" + playlist; }
    QByteArray guideText() const { return "<tv>\n" + guide + "</tv>\n"; }
    /// Begins another guide; the playlist stays.
    void clearGuide() { guide.clear(); }

    /// What an update with what was added so far would take in.
    GuideImportJob job() const { return job(guideText()); }
    GuideImportJob job(const QByteArray &guideFile) const
    {
        GuideImportJob made;
        made.storePath = path();
        made.entriesPath = folder.filePath(QStringLiteral("playlist.m3u"));
        writeFile(made.entriesPath, playlistText());
        made.now = now;
        made.guides.append(file(QStringLiteral("http://guide.example/1"), guideFile));
        return made;
    }
    /// A guide that came from that address.
    GuideImportJob::File file(const QString &address, const QByteArray &content) const
    {
        GuideImportJob::File made;
        made.address = address;
        made.path = folder.filePath(QString::number(qHash(address)) + QStringLiteral(".xml"));
        writeFile(made.path, content);
        return made;
    }

    GuideResult store() const { return GuideImport(job()).run(); }

    static QByteArray timeText(qint64 seconds)
    {
        return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC)
            .toString(QStringLiteral("yyyyMMddhhmmss +0000"))
            .toUtf8();
    }

private:
    static QByteArray escaped(const QString &text) { return text.toHtmlEscaped().toUtf8(); }

    QTemporaryDir folder;
    QByteArray playlist;
    QByteArray guide;
};
