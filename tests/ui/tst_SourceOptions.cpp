#include "WindowFixture.h"
#include "fakeprovider/XtreamProvider.h"
#include "guide/Guide.h"
#include "library/Library.h"
#include "ui/SourceOptionsDialog.h"

#include <QMenu>
#include <QSet>
#include <QTreeWidget>

/// The options of a source: the user agent of its requests, stored and sent.
class tst_SourceOptions : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { reset(); }
    void acceptsWhatMayBeSent_data();
    void acceptsWhatMayBeSent();
    void playlistIsFetchedAgain();
    void cancelledOrUnchanged();
    void editingKeepsIt();
    void allRequestsOfAnAccount();
    void otherSourcesHearTheUsualName();

private:
    void chooseOptions();
    void nextSets(const QString &userAgent);
    static QSet<QByteArray> userAgents(const HttpServer &server);

    const QString name = u"Tv/1.0 (x; y)"_s;
};

void tst_SourceOptions::chooseOptions()
{
    dialogs.nextMenu([](QMenu &menu) {
        for (QAction *action : menu.actions()) {
            if (action->text() == u"Source Options..."_s) {
                QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
            }
        }
    });
    button(u"More"_s).click();
    [this] { QTRY_COMPARE(dialogs.waiting(), 0); }();
}

void tst_SourceOptions::nextSets(const QString &userAgent)
{
    dialogs.next([userAgent](QDialog &dialog) {
        dialog.findChild<QLineEdit *>(u"userAgentEdit"_s)->setText(userAgent);
        QVERIFY(DialogAnswers::click(dialog, u"OK"_s));
    });
}

QSet<QByteArray> tst_SourceOptions::userAgents(const HttpServer &server)
{
    QSet<QByteArray> names;
    for (const HttpRequest &request : server.requests()) {
        names.insert(request.header("User-Agent"));
    }
    return names;
}

void tst_SourceOptions::acceptsWhatMayBeSent_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("isAccepted");
    QTest::addColumn<QString>("userAgent");
    QTest::newRow("a name") << name << true << name;
    QTest::newRow("nothing") << QString() << true << QString();
    QTest::newRow("blanks around") << u" Tv/1 "_s << true << u"Tv/1"_s;
    QTest::newRow("not ASCII") << u"T\u00fc/1"_s << false << QString();
    QTest::newRow("a tab") << u"T\tv"_s << false << QString();
    QTest::newRow("too long") << QString(2049, u'x') << false << QString();
}

void tst_SourceOptions::acceptsWhatMayBeSent()
{
    QFETCH(const QString, typed);
    QFETCH(const bool, isAccepted);
    SourceConfig source = playlistSource(u"a"_s, u"http://h"_s);
    source.userAgent = u"Before/1"_s;
    SourceOptionsDialog dialog(source, nullptr);
    auto *edit = dialog.findChild<QLineEdit *>(u"userAgentEdit"_s);
    QCOMPARE(edit->text(), u"Before/1"_s);
    dialog.show();
    edit->setText(typed);
    QVERIFY(DialogAnswers::click(dialog, u"OK"_s));
    QCOMPARE(dialog.isVisible(), !isAccepted);
    QCOMPARE(dialog.findChild<QLabel *>(u"userAgentProblem"_s)->isVisible(), !isAccepted);
    if (isAccepted) {
        QTEST(dialog.source().userAgent, "userAgent");
        QCOMPARE(dialog.source().url, source.url);
    }
}

void tst_SourceOptions::playlistIsFetchedAgain()
{
    HttpServer server;
    server.on(u"/list"_s, [this](const HttpRequest &request) {
        const bool known = request.header("User-Agent") == name.toLatin1();
        return known ? bodyReply(oneChannel(u"One"_s)) : statusReply(403);
    });
    server.on(u"/moved"_s, HttpReply::redirect(u"/list"_s));
    store(playlistSource(u"a"_s, server.url(u"/moved"_s), neverLoaded));
    dialogs.nextClicks(u"OK"_s); // refused
    open();
    QTRY_COMPARE(dialogs.waiting(), 0);
    QVERIFY(shownChannels().isEmpty());
    QVERIFY(!userAgents(server).contains(name.toLatin1()));
    server.clearRequests();
    nextSets(name);
    chooseOptions();
    QTRY_COMPARE(shownChannels(), QStringList{u"One"_s});
    QCOMPARE(userAgents(server), QSet{name.toLatin1()});
    QCOMPARE(stored(u"a"_s).userAgent, name);
}

void tst_SourceOptions::cancelledOrUnchanged()
{
    HttpServer server;
    server.on(u"/list"_s, bodyReply(oneChannel(u"One"_s)));
    store(playlistSource(u"a"_s, server.url(u"/list"_s), neverLoaded));
    open();
    QTRY_COMPARE(shownChannels(), QStringList{u"One"_s});
    dialogs.next([this](QDialog &dialog) {
        dialog.findChild<QLineEdit *>(u"userAgentEdit"_s)->setText(name);
        QVERIFY(DialogAnswers::click(dialog, u"Cancel"_s));
    });
    chooseOptions();
    nextSets({});
    chooseOptions();
    QCOMPARE(stored(u"a"_s).userAgent, QString());
    QCOMPARE(server.requestCount(), 1);
}

void tst_SourceOptions::editingKeepsIt()
{
    HttpServer server;
    server.on(u"/list"_s, bodyReply(oneChannel(u"One"_s)));
    SourceConfig source = playlistSource(u"a"_s, server.url(u"/list"_s), neverLoaded);
    source.userAgent = name;
    store(source);
    open();
    QTRY_COMPARE(shownChannels(), QStringList{u"One"_s});
    dialogs.nextForm(SourceType::Playlist, {{u"m3uNameEdit"_s, u"b"_s}});
    button(u"Edit Source..."_s).click();
    QTRY_COMPARE(server.requestCount(), 2);
    QTRY_VERIFY(!overlayShown());
    QCOMPARE(storedNames(), QStringList{u"b"_s});
    QCOMPARE(stored(u"b"_s).userAgent, name);
    QCOMPARE(userAgents(server), QSet{name.toLatin1()});
}

void tst_SourceOptions::allRequestsOfAnAccount()
{
    XtreamProvider provider;
    provider.generateCatalog({1, 3, 3, 3});
    SourceConfig source = sourceFor(provider, u"a"_s);
    source.userAgent = name;
    store(source);
    open();
    QTRY_COMPARE(rows(u"liveTable"_s).size(), 3);
    tabs().setCurrentIndex(1); // posters
    QTRY_VERIFY(provider.http().requestCount() > 6);
    window().showEpisodesInline(u"1"_s, u"Show"_s);
    QTRY_VERIFY(find<QTreeWidget>(u"episodeTree"_s).topLevelItemCount() > 0);
    dialogs.next([](QDialog &dialog) {
        QVERIFY(DialogAnswers::click(dialog, u"Test Connection"_s));
        QTRY_COMPARE(dialog.findChild<QLabel *>(u"statusLabel"_s)->text(), u"Connection OK"_s);
        dialog.reject();
    });
    button(u"Edit Source..."_s).click();
    GuideSettings guide;
    guide.source = u"a"_s;
    guide.enabled = true;
    guide.addresses = accountGuideAddress.toString();
    window().findChild<Library *>()->setGuideSettings(guide);
    QTRY_COMPARE(provider.http().requestCount(u"/xmltv.php"_s), 1);
    QTRY_VERIFY(repliesUnderWay().isEmpty());
    QCOMPARE(userAgents(provider.http()), QSet{name.toLatin1()});
}

void tst_SourceOptions::otherSourcesHearTheUsualName()
{
    HttpServer server;
    for (const QString &path : {u"/a"_s, u"/b"_s}) {
        server.on(path, bodyReply(oneChannel(path)));
        SourceConfig source = playlistSource(path.sliced(1), server.url(path), neverLoaded);
        source.userAgent = path == u"/a"_s ? name : QString();
        store(source);
    }
    open();
    QTRY_COMPARE(shownChannels(), QStringList{u"/a"_s});
    combo().setCurrentIndex(1);
    QTRY_COMPARE(shownChannels(), QStringList{u"/b"_s});
    QCOMPARE(server.requests().first().header("User-Agent"), name.toLatin1());
    QCOMPARE(server.requests().last().header("User-Agent"), "Mozilla/5.0"_ba);
}

VANTIRO_TEST_MAIN(tst_SourceOptions)
#include "tst_SourceOptions.moc"
