#include "support/PrivateProfile.h"
#include "support/TestMain.h"
#include "support/TraceCapture.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QTest>

#include <cstdio>

using namespace Qt::StringLiterals;

/// Everything that keeps a test apart from its user: the profile, and the caught standard error.
class tst_PrivateProfile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void locationsLieInTheProfile();
    void clearForgetsSettingsAndData();
    void traceCaptureTakesWhatWasWritten();
};

void tst_PrivateProfile::locationsLieInTheProfile()
{
    const PrivateProfile &profile = PrivateProfile::current();
    QVERIFY(QFileInfo(profile.root()).isDir());
    QCOMPARE(QDir::homePath(), profile.root());
    for (const auto location : {QStandardPaths::AppDataLocation, QStandardPaths::CacheLocation,
                                QStandardPaths::AppConfigLocation}) {
        const QString path = QStandardPaths::writableLocation(location);
        QVERIFY2(path.startsWith(profile.root() + u'/'), qUtf8Printable(path));
    }
    QVERIFY(profile.appDataDir().endsWith("/Vantiro/Vantiro Player"_L1));
}

void tst_PrivateProfile::clearForgetsSettingsAndData()
{
    PrivateProfile &profile = PrivateProfile::current();
    QSettings settings(u"Vantiro"_s, u"Player"_s);
    QCOMPARE(settings.fileName(), profile.settingsFile());
    settings.setValue(u"lastActiveSource"_s, u"Home"_s);
    settings.sync();
    QVERIFY(QFileInfo::exists(profile.settingsFile()));
    QVERIFY(QDir().mkpath(profile.appDataDir() + "/catalog_cache"_L1));

    profile.clear();

    QVERIFY(!QFileInfo::exists(profile.settingsFile()));
    QVERIFY(!QFileInfo::exists(profile.appDataDir()));
    QVERIFY(!QSettings(u"Vantiro"_s, u"Player"_s).contains(u"lastActiveSource"_s));
}

void tst_PrivateProfile::traceCaptureTakesWhatWasWritten()
{
    TraceCapture capture;
    QCOMPARE(capture.take(), QString());
    std::fputs("one\n", stderr);
    QCOMPARE(capture.take(), u"one\n"_s);
    std::fputs("zw\u00f6lf\n", stderr);
    std::fputs("three\n", stderr);
    QCOMPARE(capture.take(), u"zw\u00f6lf\nthree\n"_s);
    {
        TraceCapture inner;
        std::fputs("inner\n", stderr);
        QCOMPARE(inner.take(), u"inner\n"_s);
    }
    std::fputs("outer\n", stderr);
    QCOMPARE(capture.take(), u"outer\n"_s);
}

VANTIRO_TEST_GUILESS_MAIN(tst_PrivateProfile)
#include "tst_PrivateProfile.moc"
