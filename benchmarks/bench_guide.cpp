// The guide's grid and its search with as many channels as people have, two thirds of them in the
// guide. Their number is divided by the first argument of the program.

#include "HoldMeter.h"
#include "Results.h"
#include "guide/Guide.h"
#include "guide/GuideImport.h"
#include "support/PrivateProfile.h"
#include "support/TestFiles.h"
#include "ui/GuideGrid.h"
#include "ui/GuideSearchList.h"

#include <QApplication>
#include <QDateTime>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr int steps = 200;
constexpr qint64 hour = 3600;
/// Entries share channels of the guide, as the qualities of one channel do.
constexpr int guideChannels = 3000;

QList<MediaItem> makeEntries(int count)
{
    QList<MediaItem> items;
    for (int number = 0; number < count; ++number) {
        MediaItem item;
        item.id = u"http://127.0.0.1/%1"_s.arg(number);
        item.name = u"UK: Channel %1 HD"_s.arg(number);
        items.append(item);
    }
    return items;
}

QByteArray playlistOf(const QList<MediaItem> &entries)
{
    QByteArray text = "#EXTM3U\n";
    for (qsizetype number = 0; number < entries.size(); ++number) {
        // A third is of channels that the guide does not have.
        const qsizetype channel = number % (guideChannels + guideChannels / 2);
        text += "#EXTINF:-1 tvg-id=\"" + QByteArray::number(channel) +
                "\" catchup=\"shift\" catchup-days=\"1\"," +
                entries.at(number).name.toString().toUtf8() + '\n' +
                entries.at(number).id.toString().toUtf8() + '\n';
    }
    return text;
}

QByteArray timeText(qint64 time)
{
    return QDateTime::fromSecsSinceEpoch(time, Qt::UTC).toString(u"yyyyMMddhhmmss"_s).toLatin1();
}

/// Words that begin with each of the letters.
QByteArray titleOf(qint64 number)
{
    const auto letter = [number](qint64 place) {
        return static_cast<char>('a' + (number / place) % 26);
    };
    return QByteArray("News of ") + letter(1) + letter(26) + "ville, part " +
           QByteArray::number(number % 100);
}

/// Two days of half hours.
QByteArray guideText(qint64 now, int channels)
{
    QByteArray text = "<tv>\n";
    for (int channel = 0; channel < channels; ++channel) {
        const QByteArray id = QByteArray::number(channel);
        text += "<channel id=\"" + id + "\"><display-name>" + id + "</display-name></channel>\n";
        for (qint64 start = now - 24 * hour; start < now + 24 * hour; start += hour / 2) {
            text += "<programme channel=\"" + id + "\" start=\"" + timeText(start) + "\"><title>" +
                    titleOf(channel + start / hour) + "</title></programme>\n";
        }
    }
    return text + "</tv>\n";
}

void storeGuide(const QString &path, const QTemporaryDir &folder, const QList<MediaItem> &entries)
{
    GuideImportJob job;
    job.storePath = path;
    job.entriesPath = folder.filePath(u"playlist.m3u"_s);
    job.now = QDateTime::currentSecsSinceEpoch();
    writeFile(job.entriesPath, playlistOf(entries));
    GuideImportJob::File file;
    file.address = u"http://127.0.0.1/guide"_s;
    file.path = folder.filePath(u"guide.xml"_s);
    writeFile(file.path, guideText(job.now, std::min<int>(guideChannels, int(entries.size()))));
    job.guides.append(file);
    GuideImport(job).run();
}

bool runUntil(const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(60000);
    while (!condition()) {
        if (deadline.hasExpired()) {
            std::fprintf(stderr, "the guide did not get there\n");
            return false;
        }
        QCoreApplication::processEvents();
    }
    return true;
}

double msOf(const std::function<void()> &work)
{
    QElapsedTimer clock;
    clock.start();
    work();
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

/// Reports how long the window stays away from its event loop in the longest of many steps.
void reportSteps(const char *row, const std::function<void(int step)> &move)
{
    HoldMeter::Hold longest;
    for (int step = 0; step < steps; ++step) {
        HoldMeter::restart();
        move(step);
        QCoreApplication::processEvents();
        const HoldMeter::Hold hold = HoldMeter::longest();
        longest = {std::max(longest.wallMs, hold.wallMs), std::max(longest.cpuMs, hold.cpuMs)};
    }
    reportFigure(row, "now", longest.wallMs, "ms");
    reportFigure(row, "CPU", longest.cpuMs, "ms");
}

bool measureGrid(Guide &guide, const QList<MediaItem> &entries)
{
    QList<int> rows(entries.size());
    std::iota(rows.begin(), rows.end(), 0);
    GuideGrid grid;
    grid.resize(1280, 720);
    grid.setGuide(&guide);
    grid.show();
    const ShownEntries shown(entries, rows);
    reportFigure("guide grid: filled", "now", msOf([&] { grid.setEntries(shown); }), "ms");
    if (!runUntil([&] { return grid.currentProgramme().has_value(); })) {
        return false;
    }
    QScrollBar &channels = *grid.verticalScrollBar();
    QScrollBar &times = *grid.horizontalScrollBar();
    reportSteps("guide grid: scroll step",
                [&](int) { channels.setValue(channels.value() + 3 * channels.singleStep()); });
    reportSteps("guide grid: scroll step over hundreds of channels",
                [&](int step) { channels.setValue(channels.maximum() / steps * step); });
    reportSteps("guide grid: scroll step in time",
                [&](int) { times.setValue(times.value() + times.singleStep()); });
    return true;
}

bool measureSearch(Guide &guide)
{
    GuideSearchList list;
    list.resize(800, 700);
    list.setGuide(&guide);
    list.show();
    double longest = 0;
    for (const QString &text : {u"b"_s, u"bc"_s, u"bcville"_s, u"bcville part"_s}) {
        bool answered = false;
        const auto connection = QObject::connect(&list, &GuideSearchList::answered, &list,
                                                 [&answered] { answered = true; });
        bool found = false;
        longest = std::max(longest, msOf([&] {
                               list.search(text);
                               found = runUntil([&] { return answered; });
                           }));
        QObject::disconnect(connection);
        if (!found) {
            return false;
        }
    }
    reportFigure("guide search: from a keystroke to its rows", "now", longest, "ms");
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    PrivateProfile profile;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication app(argc, argv);
    const int divisor = argc > 1 ? std::max(1, QByteArray(argv[1]).toInt()) : 1;
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"guide.sqlite"_s);
    const QList<MediaItem> entries = makeEntries(45000 / divisor);
    storeGuide(path, folder, entries);
    Guide guide(nullptr);
    guide.open(path, 0);
    return measureGrid(guide, entries) && measureSearch(guide) ? 0 : 1;
}
