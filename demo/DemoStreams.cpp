#include "DemoStreams.h"

#include "DemoCatalog.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int channelSeconds = 60;
constexpr int filmSeconds = 60;
constexpr int episodeSeconds = 30;

/// One stream to be made.
struct Job
{
    QString file;
    QStringList arguments;
};

/// A test card with a line of text and a clock that runs.
QString picture(const QString &title, int seconds)
{
    // The filter's text ends at a quote or colon.
    QString text = title;
    text.remove(u'\'').remove(u':');
    return u"testsrc2=size=480x270:rate=20:duration=%1,"
           "drawtext=font=DejaVu "
           "Sans:text='%2':fontsize=30:fontcolor=white:box=1:boxcolor=black@0.6:"
           "boxborderw=10:x=(w-tw)/2:y=h/2-50,"
           "drawtext=font=DejaVu Sans:text='%{pts\\:hms}':fontsize=24:fontcolor=white:box=1:"
           "boxcolor=black@0.6:boxborderw=8:x=(w-tw)/2:y=h/2+10"_s.arg(seconds)
               .replace(u"%2"_s, text);
}

QStringList inputs(const QString &title, int seconds, int tone)
{
    return {u"-f"_s, u"lavfi"_s,
            u"-i"_s, picture(title, seconds),
            u"-f"_s, u"lavfi"_s,
            u"-i"_s, u"sine=frequency=%1:sample_rate=48000:duration=%2"_s.arg(tone).arg(seconds)};
}

QStringList encoding()
{
    return {u"-c:v"_s, u"libx264"_s, u"-preset"_s, u"ultrafast"_s, u"-pix_fmt"_s, u"yuv420p"_s,
            u"-g"_s,   u"20"_s,      u"-c:a"_s,    u"aac"_s,       u"-b:a"_s,     u"64k"_s};
}

Job channelJob(const DemoEntry &channel)
{
    return {channel.file,
            inputs(channel.name, channelSeconds, 220 + 40 * (channel.id % 10)) + encoding() +
                QStringList{u"-b:v"_s, u"500k"_s, u"-maxrate"_s, u"500k"_s, u"-bufsize"_s,
                            u"250k"_s, u"-muxrate"_s, u"800k"_s, u"-f"_s, u"mpegts"_s}};
}

Job filmJob(const QString &file, const QString &title, int seconds, int tone)
{
    return {file, inputs(title, seconds, tone) + encoding() +
                      QStringList{u"-crf"_s, u"30"_s, u"-movflags"_s, u"+faststart"_s}};
}

/// Writes a subtitle file with one line every five seconds; its path.
QString writeSubtitles(const QDir &folder, const QString &name, const QString &words)
{
    QFile file(folder.filePath(name));
    if (file.open(QIODevice::WriteOnly)) {
        for (int start = 0; start < filmSeconds; start += 5) {
            const QString time =
                u"00:00:%1,000 --> 00:00:%2,500"_s.arg(start, 2, 10, QLatin1Char('0'))
                    .arg(start + 4, 2, 10, QLatin1Char('0'));
            file.write(u"%1\n%2\n%3 %1\n\n"_s.arg(start / 5 + 1).arg(time, words).toUtf8());
        }
    }
    return file.fileName();
}

Job manyTracksJob(const QDir &folder, const DemoEntry &film)
{
    const QString english = writeSubtitles(folder, u"english.srt"_s, u"English subtitle"_s);
    const QString german = writeSubtitles(folder, u"german.srt"_s, u"Deutscher Untertitel"_s);
    QStringList arguments = inputs(film.name, filmSeconds, 330);
    arguments << u"-f"_s << u"lavfi"_s << u"-i"_s
              << u"sine=frequency=550:sample_rate=48000:duration=%1"_s.arg(filmSeconds) << u"-i"_s
              << english << u"-i"_s << german;
    for (const QString &stream : {u"0:v"_s, u"1:a"_s, u"2:a"_s, u"3:s"_s, u"4:s"_s}) {
        arguments << u"-map"_s << stream;
    }
    arguments << encoding() << u"-crf"_s << u"30"_s << u"-c:s"_s << u"srt"_s;
    arguments << u"-metadata:s:a:0"_s << u"language=eng"_s << u"-metadata:s:a:1"_s
              << u"language=deu"_s << u"-metadata:s:s:0"_s << u"language=eng"_s
              << u"-metadata:s:s:1"_s << u"language=deu"_s << u"-disposition:s:0"_s << u"0"_s;
    return {film.file, arguments};
}

std::vector<Job> allJobs(const QDir &folder)
{
    std::vector<Job> jobs;
    for (const DemoEntry &channel : DemoCatalog::channels()) {
        jobs.push_back(channelJob(channel));
    }
    for (const DemoEntry &film : DemoCatalog::films()) {
        jobs.push_back(film.manyTracks ? manyTracksJob(folder, film)
                                       : filmJob(film.file, film.name, filmSeconds, 200 + film.id));
    }
    for (const DemoEntry &episode : DemoCatalog::episodes()) {
        const int number = episode.id - 3000;
        const QString title = u"%1 S%2E%3 %4"_s.arg(DemoCatalog::showName())
                                  .arg((number - 1) / DemoCatalog::episodesPerSeason + 1)
                                  .arg((number - 1) % DemoCatalog::episodesPerSeason + 1)
                                  .arg(episode.name);
        jobs.push_back(filmJob(episode.file, title, episodeSeconds, 300 + 20 * number));
    }
    return jobs;
}

/// Runs one ffmpeg. Made under another name, so that a stream that is there is whole.
std::unique_ptr<QProcess> begin(const QDir &folder, const Job &job)
{
    auto process = std::make_unique<QProcess>();
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    process->setStandardInputFile(QProcess::nullDevice());
    const QStringList common = {u"-nostdin"_s, u"-hide_banner"_s, u"-loglevel"_s, u"error"_s,
                                u"-y"_s};
    process->start(u"ffmpeg"_s,
                   common + job.arguments + QStringList{folder.filePath(u"part-"_s + job.file)});
    return process;
}

bool finish(const QDir &folder, QProcess &process, const Job &job)
{
    const bool made = process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit &&
                      process.exitCode() == 0;
    if (!made) {
        std::fprintf(stderr, "demo-provider: ffmpeg could not make %s\n", qPrintable(job.file));
        return false;
    }
    return QFile::rename(folder.filePath(u"part-"_s + job.file), folder.filePath(job.file));
}

} // namespace

bool makeDemoStreams(const QString &path)
{
    QDir folder(path);
    if (!folder.mkpath(u"."_s)) {
        std::fprintf(stderr, "demo-provider: cannot make the folder %s\n", qPrintable(path));
        return false;
    }
    std::vector<Job> jobs = allJobs(folder);
    std::erase_if(jobs, [&folder](const Job &job) { return folder.exists(job.file); });
    const size_t together = static_cast<size_t>(std::max(1, QThread::idealThreadCount()));
    bool made = true;
    for (size_t first = 0; first < jobs.size() && made; first += together) {
        std::printf("Making the demo's streams: %zu of %zu\n", first + 1, jobs.size());
        std::fflush(stdout);
        const size_t end = std::min(first + together, jobs.size());
        std::vector<std::unique_ptr<QProcess>> running;
        for (size_t index = first; index < end; ++index) {
            running.push_back(begin(folder, jobs[index]));
        }
        for (size_t index = first; index < end; ++index) {
            made = finish(folder, *running[index - first], jobs[index]) && made;
        }
    }
    return made;
}
