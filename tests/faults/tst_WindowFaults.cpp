// A source is refreshed while its provider has a fault: what the user sees, that the window
// answers all the while, and that the next refresh works.

#include "WindowFixture.h"
#include "faults/GuiLoad.h"
#include "faults/Memory.h"
#include "providers/FaultyProvider.h"

#include <QNetworkAccessManager>

using Outcome = Fault::Outcome;

namespace {

constexpr int patienceMs = 30'000;
/// Six replies of 100 MB, each of which is put together once.
constexpr qint64 mostMemoryMb = 1300;

struct Kind
{
    const char *name;
    SourceConfig (*source)(const FaultyProvider &provider);
    /// The title of the box and how its text begins, for the outcomes that open one.
    QString boxTitle;
    QHash<Outcome, QString> boxTexts;
};

const QList<Kind> &kinds()
{
    const QString unreachable = u"Failed to load subscription: Could not reach server: "_s;
    static const QList<Kind> all{
        {"playlist",
         [](const FaultyProvider &provider) {
             return playlistSource(u"A"_s, provider.playlistUrl(), neverLoaded);
         },
         u"Load Playlist"_s,
         {{Outcome::Fails, u"Failed to download playlist: "_s}}},
        {"account",
         [](const FaultyProvider &provider) {
             return accountSource(u"A"_s, provider.url(), neverLoaded);
         },
         {},
         {}},
        {"subscription",
         [](const FaultyProvider &) { return subscriptionSource(u"A"_s, u"KEY"_s); },
         u"Zevrino"_s,
         {{Outcome::Fails, unreachable},
          {Outcome::LargeBody, unreachable},
          {Outcome::WrongBody, u"Failed to load subscription: Invalid response from server"_s}}},
    };
    return all;
}

} // namespace

class tst_WindowFaults : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void refresh_data();
    void refresh();

private:
    bool isEmpty() const;
    bool isLoaded(bool asAccount) const;
    void setTimeout(int ms) const;
    void forgetConnections() const;
};

/// Whether the tabs have no entries. The categories stay until others arrive.
bool tst_WindowFaults::isEmpty() const
{
    window().filterLive();
    window().filterMovies();
    window().filterSeries();
    window().filterChannels();
    const AccountCatalog catalog = shownCatalog();
    return catalog.at(1).isEmpty() && catalog.at(3).isEmpty() && catalog.at(5).isEmpty() &&
           shownChannels().isEmpty();
}

bool tst_WindowFaults::isLoaded(bool asAccount) const
{
    const AccountCatalog catalog{{u"News"_s}, {u"Channel"_s}, {u"Drama"_s},
                                 {u"Film"_s}, {u"Crime"_s},   {u"Show"_s}};
    return !overlayShown() &&
           (asAccount ? shownCatalog() == catalog : shownChannels() == QStringList{u"Channel"_s});
}

void tst_WindowFaults::setTimeout(int ms) const
{
    for (QNetworkAccessManager *network : window().findChildren<QNetworkAccessManager *>()) {
        network->setTransferTimeout(ms);
    }
}

/// Qt may be in a handshake with the faulty server once more, for requests that are yet to come.
void tst_WindowFaults::forgetConnections() const
{
    for (QNetworkAccessManager *network : window().findChildren<QNetworkAccessManager *>()) {
        network->clearConnectionCache();
    }
}

void tst_WindowFaults::refresh_data()
{
    QTest::addColumn<int>("fault");
    QTest::addColumn<int>("kind");
    // tst_RequestFaults tries each request under each fault; here is one fault of each class.
    const QList<QByteArray> chosen{"shorter than announced", "silent",
                                   "302 to another host",    "200 with a page",
                                   "100 MB of zeros",        "100 MB of zeros, packed",
                                   "an expired certificate"};
    for (int kind = 0; kind < kinds().size(); ++kind) {
        for (int fault = 0; fault < FaultyProvider::faults().size(); ++fault) {
            const char *name = FaultyProvider::faults().at(fault).name;
            if (chosen.contains(name)) {
                QTest::addRow("%s: %s", kinds().at(kind).name, name) << fault << kind;
            }
        }
    }
}

void tst_WindowFaults::refresh()
{
    QFETCH(const int, fault);
    QFETCH(const int, kind);
    const Outcome outcome = FaultyProvider::faults().at(fault).outcome;
    // Qt unpacks on this thread the first 10 MB of each of six replies before it refuses them.
    const bool isPacked = QByteArray(FaultyProvider::faults().at(fault).name).endsWith("packed");
    const double answersWithinMs = (isPacked ? 600 : 100) * slowness;
    const Kind &tried = kinds().at(kind);
    reset();
    FaultyProvider provider(FaultyProvider::faults().at(fault));
    const SourceConfig source = tried.source(provider);
    const bool asAccount = SourceType::isAccount(source.type);
    store(source);
    open(provider.url());
    QTRY_VERIFY_WITH_TIMEOUT(isLoaded(asAccount), patienceMs);

    provider.begin();
    setTimeout(FaultyProvider::faults().at(fault).timeoutMs);
    resetPeakMemory();
    const qint64 memoryBefore = memoryMb("VmRSS"_ba);
    GuiLoad load;
    window().refreshActiveSource();
    QVERIFY(overlayShown());
    QTRY_VERIFY_WITH_TIMEOUT(!overlayShown(), patienceMs);
    const bool opensBox = tried.boxTexts.contains(outcome);
    QTRY_COMPARE(dialogs.seen().size(), opensBox ? 1 : 0);
    if (opensBox) {
        QCOMPARE(dialogs.seen().first().title, tried.boxTitle);
        QVERIFY2(dialogs.seen().first().text.startsWith(tried.boxTexts.value(outcome)),
                 qPrintable(dialogs.seen().first().text));
    }
    QVERIFY(outcome == Outcome::Works ? isLoaded(asAccount) : isEmpty());
    const double longestMs = load.longestMs();
    QVERIFY2(longestMs < answersWithinMs, qPrintable(QString::number(longestMs)));
    const qint64 memory = memoryMb("VmHWM"_ba) - memoryBefore;
    QVERIFY2(memory < mostMemoryMb, qPrintable(QString::number(memory)));

    provider.end();
    forgetConnections();
    setTimeout(Fault::patientMs);
    window().refreshActiveSource();
    QTRY_VERIFY_WITH_TIMEOUT(isLoaded(asAccount), patienceMs);
    QCOMPARE(dialogs.seen().size(), opensBox ? 1 : 0);
}

VANTIRO_TEST_MAIN(tst_WindowFaults)
#include "tst_WindowFaults.moc"
