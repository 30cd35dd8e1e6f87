#include "DemoCatalog.h"

using namespace Qt::StringLiterals;

namespace {

QList<DemoEntry> makeEpisodes()
{
    const QStringList titles = {u"Landfall"_s,       u"The Keeper"_s, u"Fog Signal"_s,
                                u"Spring Tide"_s,    u"Soundings"_s,  u"The Second Lamp"_s,
                                u"Winter Harbour"_s, u"Open Water"_s, u"Last Light"_s};
    QList<DemoEntry> episodes;
    for (int index = 0; index < titles.size(); ++index) {
        DemoEntry entry;
        entry.id = 3001 + index;
        entry.name = titles.at(index);
        entry.file = u"episode%1.mp4"_s.arg(index + 1);
        episodes.append(entry);
    }
    return episodes;
}

QList<DemoEntry> makeChannels()
{
    QList<DemoEntry> channels = {{101, u"Harbour One"_s, 1, {}, 0, 0, false, false},
                                 {102, u"Night News 24"_s, 1, {}, 0, 0, false, false},
                                 {103, u"Mountain View"_s, 2, {}, 0, 0, false, false},
                                 {104, u"Ocean Planet"_s, 2, {}, 0, 0, false, false},
                                 {105, u"City Sports"_s, 3, {}, 0, 0, false, false},
                                 {106, u"Dropout TV"_s, 3, {}, 0, 0, true, false}};
    for (DemoEntry &channel : channels) {
        channel.file = u"channel%1.ts"_s.arg(channel.id);
    }
    return channels;
}

} // namespace

const QList<DemoEntry> &DemoCatalog::channels()
{
    static const QList<DemoEntry> list = makeChannels();
    return list;
}

const QList<DemoEntry> &DemoCatalog::films()
{
    static const QList<DemoEntry> list = {
        {201, u"The Long Tide"_s, 1, u"film201.mkv"_s, 8.4, 2024, false, true},
        {202, u"Paper Lanterns"_s, 1, u"film202.mp4"_s, 7.9, 2023, false, false},
        {203, u"A Quiet Orbit"_s, 2, u"film203.mp4"_s, 9.1, 2021, false, false},
        {204, u"Seven Bridges"_s, 2, u"film204.mp4"_s, 6.8, 2019, false, false},
        {205, u"Überraschung im Mai"_s, 3, u"film205.mp4"_s, 7.2, 2022, false, false},
        {206, u"The Clockmaker"_s, 3, u"film206.mp4"_s, 8.8, 2018, false, false}};
    return list;
}

const QList<DemoEntry> &DemoCatalog::episodes()
{
    static const QList<DemoEntry> list = makeEpisodes();
    return list;
}

QString DemoCatalog::showName()
{
    return u"Lighthouse"_s;
}

const QList<QString> &DemoCatalog::channelCategories()
{
    static const QList<QString> list = {u"News"_s, u"Nature"_s, u"Sports"_s};
    return list;
}

const QList<QString> &DemoCatalog::filmCategories()
{
    static const QList<QString> list = {u"Drama"_s, u"Science Fiction"_s, u"Comedy"_s};
    return list;
}

const QList<QString> &DemoCatalog::showCategories()
{
    static const QList<QString> list = {u"Series"_s};
    return list;
}
