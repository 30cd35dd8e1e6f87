#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// A programme of a provider's guide.
struct ProviderProgramme
{
    qint64 start = 0; ///< seconds since the epoch
    qint64 stop = 0;
    QString title;
    QString description;
};

/// A provider's programme guide. What runs follows from the channel and the time alone, so that the
/// guide moves with the clock and all its answers agree. Not guarded against threads.
class ProviderGuide final
{
public:
    struct Channel
    {
        int stream = 0;
        QString id; ///< in the guide
        QString name;
        int archiveDays = 0;
    };
    /// How far the guide reaches, in both directions.
    static constexpr qint64 reachSeconds = 3LL * 24 * 60 * 60;

    void add(const Channel &channel) { channels.append(channel); }
    std::optional<Channel> channelOf(int stream) const;

    /// The programmes that run between the two times, without gaps.
    static QList<ProviderProgramme> programmes(const Channel &channel, qint64 from, qint64 to);

    /// The whole guide as XMLTV.
    QByteArray xmltv(qint64 now) const;
    /// The reply to a question for the running programme and the next ones, `most` in all; texts
    /// are in Base64. A stream without a guide has no programmes.
    QByteArray shortSchedule(int stream, qint64 now, int most) const;
    /// The same for all programmes, past ones included.
    QByteArray fullSchedule(int stream, qint64 now) const;

private:
    QList<Channel> channels;
};
