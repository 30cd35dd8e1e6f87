#include "providers/RedirectFollower.h"
#include "support/TestMain.h"

#include <QNetworkReply>
#include <QTest>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

/// A reply that is redirected when the test says so. Stands for the versions of Qt that are not
/// installed here: tst_XtreamClient follows real redirects.
class RedirectedReply : public QNetworkReply
{
public:
    explicit RedirectedReply(bool connectAtEveryHop)
        : connectsAtEveryHop(connectAtEveryHop)
    {}

    /// Sends the request, the first one or that of a hop.
    void send()
    {
        if (connectsAtEveryHop || !isConnected) {
            connect(this, &QNetworkReply::redirectAllowed, this, [this] { ++followed; });
            isConnected = true;
        }
    }
    void abort() override {}

    int followed = 0;

protected:
    qint64 readData(char *, qint64) override { return -1; }

private:
    bool connectsAtEveryHop;
    bool isConnected = false;
};

} // namespace

class tst_RedirectFollower : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void followsEachHopOnce_data();
    void followsEachHopOnce();
};

void tst_RedirectFollower::followsEachHopOnce_data()
{
    QTest::addColumn<bool>("connectsAtEveryHop");
    QTest::newRow("connected at every hop") << true;
    QTest::newRow("connected once") << false;
}

void tst_RedirectFollower::followsEachHopOnce()
{
    QFETCH(const bool, connectsAtEveryHop);
    for (const bool sentFirst : {false, true}) {
        RedirectedReply reply(connectsAtEveryHop);
        if (sentFirst) {
            reply.send();
        }
        new RedirectFollower(&reply);
        if (!sentFirst) {
            reply.send();
        }
        for (int hop = 1; hop <= 10; ++hop) {
            Q_EMIT reply.redirected(QUrl(u"http://h/%1"_s.arg(hop)));
            QCOMPARE(reply.followed, hop);
            reply.send();
        }
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_RedirectFollower)
#include "tst_RedirectFollower.moc"
