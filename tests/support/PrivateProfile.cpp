#include "support/PrivateProfile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

PrivateProfile *currentProfile = nullptr;

struct Folder
{
    const char *variable;
    QLatin1StringView name;
};
constexpr Folder folders[] = {
    {"XDG_CONFIG_HOME", "config"_L1},
    {"XDG_DATA_HOME", "data"_L1},
    {"XDG_CACHE_HOME", "cache"_L1},
};

} // namespace

PrivateProfile::PrivateProfile()
    : directory(QDir::tempPath() + "/vantiro-profile-XXXXXX"_L1)
{
    if (!directory.isValid())
        qFatal("PrivateProfile: cannot make a temporary folder");
#ifdef Q_OS_WIN
    // The environment does not move the registry and the known folders, so the whole profile must
    // be made for the tests, as packaging/windows/run-under-wine does.
    if (!qEnvironmentVariableIsSet("VANTIRO_PRIVATE_PROFILE"))
        qFatal(
            "PrivateProfile: set VANTIRO_PRIVATE_PROFILE in a profile that holds no user's data");
#endif
    // An X server's cookie lies in the user's home unless the environment says otherwise.
    if (!qEnvironmentVariableIsSet("XAUTHORITY"))
        qputenv("XAUTHORITY", QFile::encodeName(QDir::homePath() + "/.Xauthority"_L1));
    qputenv("HOME", QFile::encodeName(root()));
    for (const Folder &folder : folders) {
        const QString path = directory.filePath(folder.name);
        QDir().mkpath(path);
        qputenv(folder.variable, QFile::encodeName(path));
    }
    QCoreApplication::setApplicationName(u"Vantiro Player"_s);
    QCoreApplication::setOrganizationName(u"Vantiro"_s);
    currentProfile = this;
}

PrivateProfile::~PrivateProfile()
{
    currentProfile = nullptr;
}

PrivateProfile &PrivateProfile::current()
{
    if (currentProfile == nullptr)
        qFatal("PrivateProfile: the test program's main made none");
    return *currentProfile;
}

void PrivateProfile::clear()
{
    // Through QSettings first: it keeps the values of a file that it has read.
    for (const QString &name : {u"Player"_s, u"Window"_s}) {
        QSettings settings(u"Vantiro"_s, name);
        settings.clear();
        settings.sync();
    }
    for (const Folder &folder : folders) {
        QDir contents(directory.filePath(folder.name));
        contents.removeRecursively();
        QDir().mkpath(contents.path());
    }
#ifdef Q_OS_WIN
    QDir(appDataDir()).removeRecursively();
#endif
}

QString PrivateProfile::root() const
{
    return directory.path();
}

QString PrivateProfile::appDataDir() const
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

QString PrivateProfile::settingsFile() const
{
    return directory.filePath(u"config/Vantiro/Player.conf"_s);
}
