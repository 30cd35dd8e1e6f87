// A damaged or foreign settings file: the sources that it has survive every later save.

#include "FuzzTarget.h"

#include "model/SourceManager.h"
#include "support/PrivateProfile.h"
#include "support/TestFiles.h"

#include <QDateTime>

#include <tuple>

using namespace Qt::StringLiterals;

namespace {

/// Replaces the file with one of another time: QSettings keeps the values of a file whose size and
/// time it knows.
void writeSettings(const QByteArray &content)
{
    static QDateTime time = QDateTime::currentDateTime();
    time = time.addSecs(1);
    const QString path = PrivateProfile::current().settingsFile();
    writeFile(path, content);
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite) ||
        !file.setFileTime(time, QFileDevice::FileModificationTime)) {
        qFatal("cannot set the time of the settings");
    }
}

bool areEqual(const SourceConfig &a, const SourceConfig &b)
{
    const auto fields = [](const SourceConfig &source) {
        return std::tie(source.type, source.name, source.url, source.username, source.password,
                        source.liveExtension, source.subscriptionKey, source.lastUpdated);
    };
    return fields(a) == fields(b);
}

void requireSources(const QList<SourceConfig> &expected)
{
    const QList<SourceConfig> stored = SourceManager(nullptr).sources();
    require(std::equal(stored.begin(), stored.end(), expected.begin(), expected.end(), areEqual),
            "the stored sources are those that were there");
}

} // namespace

void fuzz(FuzzInput &input)
{
    SourceConfig added = defaultSourceConfig();
    added.type = input.below(4) - 1;
    added.name = QString::fromUtf8(input.takeUntil('\n'));
    added.password = QString::fromUtf8(input.takeUntil('\n'));
    added.lastUpdated = 1700000000;
    writeSettings(input.rest());

    SourceManager manager(nullptr);
    manager.setLastActiveSourceName(added.name);
    requireSources(manager.sources());
    manager.saveSource(added);
    requireSources(manager.sources());
    require(SourceManager(nullptr).lastActiveSourceName() == added.name,
            "the last active source is stored");
    manager.removeSource(added.name);
    requireSources(manager.sources());
}
