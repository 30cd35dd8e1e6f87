// A guide of 100 MB: stored, and asked as the window asks it.

#include "Results.h"
#include "fakeprovider/CatalogGenerator.h"
#include "fakeprovider/Gzip.h"
#include "guide/GuideImport.h"
#include "guide/GuideReader.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr int playlistChannels = 45'000;
constexpr int guideChannels = 3'000;
constexpr int programmesOfEach = 110;
constexpr qint64 day = 86'400;
const QString urlBase = u"http://127.0.0.1/live/"_s;

/// The shortest of three runs in ms.
double timeOf(const std::function<void()> &step)
{
    double shortest = 0;
    for (int run = 0; run < 3; ++run) {
        QElapsedTimer clock;
        clock.start();
        step();
        const auto ms = static_cast<double>(clock.nsecsElapsed()) / 1e6;
        shortest = run == 0 ? ms : std::min(shortest, ms);
    }
    return shortest;
}

void report(const char *row, const std::function<void()> &step)
{
    reportFigure(row, "now", timeOf(step), "ms");
}

bool write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QStringList entryIds(int count)
{
    QStringList ids;
    for (int index = 0; index < count; ++index) {
        ids << urlBase + QString::number(index * 7);
    }
    return ids;
}

void measureQuestions(const QString &path, qint64 now)
{
    GuideReader reader(path, 0);
    const QStringList visible = entryIds(50);
    qsizetype found = 0;
    report("guide: now and next of 50 rows", [&] { found += reader.onNow(visible, now).size(); });
    report("guide: schedule of a channel, eight days", [&] {
        found += reader.schedules(visible.first(1), now - day, now + 7 * day, true).size();
    });
    report("guide: titles of 50 rows, four hours",
           [&] { found += reader.schedules(visible, now, now + 4LL * 3600, false).size(); });
    report("guide: search for a word", [&] { found += reader.search(u"news"_s, now, 200).size(); });
    report("guide: search for a letter", [&] { found += reader.search(u"a"_s, now, 200).size(); });
    report("guide: channels to choose from", [&] { found += reader.channels({}, 100).size(); });
    if (found == 0) {
        qFatal("the guide has no answers");
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    const int divisor = argc > 1 ? std::max(1, QByteArray(argv[1]).toInt()) : 1;
    const QTemporaryDir folder;
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    CatalogGenerator generator;
    GuideImportJob job;
    job.storePath = folder.filePath(u"guide.sqlite"_s);
    job.entriesPath = folder.filePath(u"playlist.m3u"_s);
    job.now = now;
    const QString path = folder.filePath(u"guide.xml.gz"_s);
    job.guides.append({u"file"_s, u"file"_s, path, GuideProblem::None, {}});
    if (!write(job.entriesPath, generator.playlist(playlistChannels / divisor, 50, urlBase)) ||
        !write(path, packedWithGzip(generator.guide(std::max(400, guideChannels / divisor),
                                                    programmesOfEach, now - day)))) {
        qFatal("cannot write the files");
    }
    report("guide: import of 100 MB, packed", [&] {
        if (GuideImport(job).run().programmes == 0) {
            qFatal("nothing was stored");
        }
    });
    measureQuestions(job.storePath, now);
    return 0;
}
