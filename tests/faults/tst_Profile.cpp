// The program on profiles that users and systems make: odd paths, and places where it cannot write.

#include "fakeprovider/XtreamProvider.h"
#include "faults/FullDisk.h"
#include "model/SourceManager.h"
#include "providers/SampleCatalogs.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QProcess>
#include <QTemporaryDir>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// The folders of a profile; some of them may be missing.
struct Folders
{
    explicit Folders(const QString &root)
        : home(root)
        , config(root + "/config"_L1)
        , data(root + "/data"_L1)
    {}

    QString settingsFile() const { return config + "/Vantiro/Player.conf"_L1; }

    QString home;
    QString config;
    QString data;
};

enum class Stores
{
    Everything,
    OnlySettings,
    Nothing
};

} // namespace

using Preparation = std::function<void(const Folders &)>;
Q_DECLARE_METATYPE(Stores)
Q_DECLARE_METATYPE(Preparation)

class tst_Profile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loads_data();
    void loads();
};

void tst_Profile::loads_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<Preparation>("prepare");
    QTest::addColumn<Stores>("stores");
    QTest::addColumn<bool>("isFull");
    const Preparation nothing = [](const Folders &) {};
    QTest::newRow("blanks and letters that are not ASCII")
        << u"Fërn  sehen '電視' %41 $HOME"_s << nothing << Stores::Everything << false;
    QTest::newRow("a very long path") << QStringList(10, u"long"_s.repeated(20)).join(u'/')
                                      << nothing << Stores::Everything << false;
    QTest::newRow("a file in place of the data folder")
        << u"profile"_s << Preparation([](const Folders &folders) { writeFile(folders.data, {}); })
        << Stores::OnlySettings << false;
    QTest::newRow("a disk without room") << u"profile"_s << nothing << Stores::Nothing << true;
}

void tst_Profile::loads()
{
    QFETCH(const QString, folder);
    QFETCH(const Preparation, prepare);
    QFETCH(const Stores, stores);
    QFETCH(const bool, isFull);
    PrivateProfile::current().clear();
    XtreamProvider provider;
    serve(provider, madeUpCatalog(u"New"_s));
    SourceManager(nullptr).saveSource(sourceFor(provider, u"A"_s));
    const QByteArray settings = readFile(PrivateProfile::current().settingsFile());
    QVERIFY(settings.contains("\\lastUpdated=0\n"));

    const QTemporaryDir root;
    const Folders folders(root.filePath(folder));
    writeFile(folders.settingsFile(), settings);
    prepare(folders);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, folders.home);
    environment.insert(u"XDG_CONFIG_HOME"_s, folders.config);
    environment.insert(u"XDG_DATA_HOME"_s, folders.data);
    QProcess program;
    program.setProcessEnvironment(environment);
    program.setProgram(QStringLiteral(VANTIRO_PLAYER));
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    if (isFull) {
        program.setChildProcessModifier([] { static const FullDisk forItsLife(0); });
    }
    program.start();
    QTRY_COMPARE_WITH_TIMEOUT(provider.actions().size(), 6, 20'000);
    QTRY_COMPARE(provider.http().openConnections(), 0);

    const QString cacheFile = folders.data + "/Vantiro/Vantiro Player/catalog_cache/A.json"_L1;
    if (stores == Stores::Everything) {
        for (const QStringList &names : madeUpCatalog(u"New"_s)) {
            QTRY_VERIFY(readFile(cacheFile).contains(names.last().toUtf8()));
        }
    }
    const QByteArray settingsNow = readFile(folders.settingsFile());
    QCOMPARE(settingsNow == settings, stores == Stores::Nothing);
    QVERIFY(settingsNow.contains("\\name=A\n") && settingsNow.contains("size=1\n"));
    // It goes on without what it cannot store.
    QCOMPARE(program.state(), QProcess::Running);
    program.kill();
    QVERIFY(program.waitForFinished());
}

VANTIRO_TEST_GUILESS_MAIN(tst_Profile)
#include "tst_Profile.moc"
