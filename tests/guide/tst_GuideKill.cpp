#include "guide/GuideReader.h"
#include "guide/StoredGuide.h"
#include "support/TestMain.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

// A program that is killed while it stores a guide leaves the guide of the last update.

namespace {

constexpr qint64 now = StoredGuide::now;
constexpr int programmes = 60'000;
const QString entry = u"http://h/1"_s;

GuideImportJob jobIn(const QString &folder)
{
    GuideImportJob job;
    job.storePath = folder + u"/guide.sqlite"_s;
    job.entriesPath = folder + u"/list.m3u"_s;
    job.now = now;
    job.guides.append(
        {u"http://guide.example/1"_s, {}, folder + u"/guide.xml"_s, GuideProblem::None, {}});
    return job;
}

QString titleAtNow(const GuideImportJob &job)
{
    const OnNow found = GuideReader(job.storePath, 0).onNow({entry}, now).value(entry);
    return found.now.value_or(GuideProgramme()).title;
}

} // namespace

class tst_GuideKill : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void killedAndRepeated();
};

void tst_GuideKill::killedAndRepeated()
{
    const QTemporaryDir folder;
    const GuideImportJob job = jobIn(folder.path());
    StoredGuide contents;
    contents.addEntry(entry, u"One"_s, uR"(tvg-id="one")"_s);
    writeFile(job.entriesPath, contents.playlistText());
    contents.addProgramme(u"one"_s, now, now + 60, u"Old"_s);
    writeFile(job.guides.first().path, contents.guideText());
    QCOMPARE(GuideImport(job).run().programmes, 1);

    contents.clearGuide();
    for (int number = 0; number < programmes; ++number) {
        contents.addProgramme(u"one"_s, now + number, 0, u"New %1"_s.arg(number));
    }
    writeFile(job.guides.first().path, contents.guideText());
    QRandomGenerator random(7);
    int killed = 0;
    for (int attempt = 0; attempt < 100 && killed < 10; ++attempt) {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {u"--import"_s, folder.path()});
        QVERIFY(process.waitForReadyRead(20'000)); // it begins
        if (!process.waitForFinished(random.bounded(1, 120))) {
            process.kill();
            QVERIFY(process.waitForFinished());
            ++killed;
            const QString title = titleAtNow(job);
            // It may have been killed after its end.
            QVERIFY2(title == "Old"_L1 || title == "New 0"_L1, qPrintable(title));
        }
    }
    QVERIFY(killed > 0);
    const GuideResult result = GuideImport(job).run();
    QCOMPARE(result.programmes, programmes);
    QCOMPARE(titleAtNow(job), u"New 0"_s);
}

int main(int argc, char **argv)
{
    if (argc == 3 && QByteArrayView(argv[1]) == "--import") {
        const QCoreApplication app(argc, argv);
        std::puts("begins");
        std::fflush(stdout);
        return GuideImport(jobIn(QString::fromLocal8Bit(argv[2]))).run().programmes > 0 ? 0 : 1;
    }
    return runTestProgram<QCoreApplication, tst_GuideKill>(argc, argv);
}

#include "tst_GuideKill.moc"
