// A name that looks like markup, a menu shortcut and a place marker, wherever a provider's text or
// a source's name is shown: it is shown as it is.

#include "WindowFixture.h"
#include "ui/EpisodePage.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QTextDocument>
#include <QTextEdit>
#include <QTreeWidget>

namespace {

const QString name = u"<b>A</b> &Xyzzy %1 %2 &lt;"_s;
/// What any reading of the name keeps of it.
const QString mark = u"Xyzzy"_s;

/// Visits every entry of a model.
void visit(const QAbstractItemModel &model, const QModelIndex &parent,
           const std::function<void(const QModelIndex &)> &take)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        take(index);
        visit(model, index, take);
    }
}

const QAbstractItemModel *modelOf(const QWidget &widget)
{
    if (const auto *combo = qobject_cast<const QComboBox *>(&widget)) {
        return combo->model();
    }
    const auto *view = qobject_cast<const QAbstractItemView *>(&widget);
    return view != nullptr ? view->model() : nullptr;
}

/// What a user sees of one widget, and what Qt would not show as it is.
struct Texts
{
    QStringList shown;
    QStringList interpreted;

    void check(const QString &text, bool isShownAsItIs)
    {
        if (text.contains(mark)) {
            (isShownAsItIs ? shown : interpreted) << text;
        }
    }

    void addEntries(const QAbstractItemModel &model)
    {
        visit(model, {}, [this](const QModelIndex &index) {
            check(index.data().toString(), true); // delegates show plain text
            for (const int role : {Qt::ToolTipRole, Qt::StatusTipRole, Qt::WhatsThisRole}) {
                check(index.data(role).toString(), false);
            }
        });
    }

    void add(const QWidget &widget)
    {
        // Two marks of a changed document show as one.
        QString title = widget.windowTitle();
        check(title, !title.remove("[*][*]"_L1).contains("[*]"_L1));
        for (const QString &tip : {widget.toolTip(), widget.statusTip(), widget.whatsThis()}) {
            check(tip, !Qt::mightBeRichText(tip));
        }
        const QList<QAction *> actions = widget.actions();
        for (const QAction *action : actions) {
            check(action->text(), QKeySequence::mnemonic(action->text()).isEmpty());
        }
        if (const auto *label = qobject_cast<const QLabel *>(&widget)) {
            check(label->text(), label->textFormat() == Qt::PlainText && label->buddy() == nullptr);
        } else if (const auto *button = qobject_cast<const QAbstractButton *>(&widget)) {
            check(button->text(), QKeySequence::mnemonic(button->text()).isEmpty());
        } else if (const auto *box = qobject_cast<const QGroupBox *>(&widget)) {
            check(box->title(), QKeySequence::mnemonic(box->title()).isEmpty());
        } else if (const auto *rich = qobject_cast<const QTextEdit *>(&widget)) {
            check(rich->toPlainText(), false);
        } else if (const QAbstractItemModel *model = modelOf(widget)) {
            addEntries(*model);
        }
    }
};

Texts textsOf(const QWidget &window)
{
    Texts texts;
    texts.add(window);
    const QList<QWidget *> children = window.findChildren<QWidget *>();
    for (const QWidget *child : children) {
        texts.add(*child);
    }
    return texts;
}

} // namespace

class tst_ProviderTexts : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void areShownAsTheyAre_data();
    void areShownAsTheyAre();

private:
    using Step = void (tst_ProviderTexts::*)();

    void openPlaylist();
    void playChannelOfThePlaylist();
    void searchForIt();
    void openAccount();
    void playFilm();
    void playEpisode();
    void failToLoad();
    void failToPlay();
    void editTheSource();

    void storeAccount();
    /// Looks at the next dialog, then closes it.
    void lookAtNextDialog();

    std::unique_ptr<HttpServer> server;
    Texts inDialog;
};

Q_DECLARE_METATYPE(void (tst_ProviderTexts::*)())

void tst_ProviderTexts::init()
{
    reset();
    inDialog = {};
    server = std::make_unique<HttpServer>();
    server->onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
}

void tst_ProviderTexts::lookAtNextDialog()
{
    dialogs.next([this](QDialog &dialog) {
        inDialog = textsOf(dialog);
        dialog.reject();
    });
}

void tst_ProviderTexts::openPlaylist()
{
    store(playlistSource(name, server->url(u"/list"_s)));
    CatalogCache::save(name, u"channel"_s,
                       {{{name, name}}, {channel(name, server->url(u"/1"_s), name)}});
    open();
}

void tst_ProviderTexts::playChannelOfThePlaylist()
{
    openPlaylist();
    window().selectChannelCategory(find<QListWidget>(u"channelCategoryList"_s).item(1));
    QCOMPARE(find<QLabel>(u"channelTitleLabel"_s).text(), name);
    window().playChannelRow(0, 0);
    QCOMPARE(nowPlaying(), u"Playing: "_s + name);
}

void tst_ProviderTexts::searchForIt()
{
    openPlaylist();
    find<QLineEdit>(u"channelAllSearch"_s).setText(name);
    QCOMPARE(shownChannels(), QStringList{name});
    QCOMPARE(find<QLabel>(u"channelTitleLabel"_s).text(), u"Search: \"%1\""_s.arg(name));
}

void tst_ProviderTexts::storeAccount()
{
    store(accountSource(name, server->url()));
    cacheCatalog(name, AccountCatalog(accountParts, {name}));
    CatalogCache::saveEpisodes(name, u"1"_s,
                               {{u"5"_s, name, 1, 1, name, u"mp4"_s}, {{}, {}, 1, 2, name, {}}});
}

void tst_ProviderTexts::openAccount()
{
    storeAccount();
    open();
    QCOMPARE(shownCatalog(), AccountCatalog(accountParts, {name}));
}

void tst_ProviderTexts::playFilm()
{
    openAccount();
    window().selectMovieCategory(find<QListWidget>(u"movieCategoryList"_s).item(1));
    window().playMovieRow(0, 0);
    QCOMPARE(nowPlaying(), u"Playing: "_s + name);
}

void tst_ProviderTexts::playEpisode()
{
    openAccount();
    window().showEpisodesInline(u"1"_s, name);
    QCOMPARE(find<QLabel>(u"episodeTitleLabel"_s).text(), name);
    const QTreeWidgetItem *season = find<QTreeWidget>(u"episodeTree"_s).topLevelItem(0);
    QCOMPARE(season->child(0)->text(0), u"E01 - "_s + name);
    find<EpisodePage>(u"episodePage"_s).playEpisodeTreeItem(season->child(0));
    QCOMPARE(nowPlaying(), u"Playing: %1 - S01E01 - %1"_s.arg(name));
}

void tst_ProviderTexts::failToLoad()
{
    lookAtNextDialog();
    store(playlistSource(u"A"_s, u"/nowhere/"_s + name, neverLoaded));
    open();
    QTRY_VERIFY(!inDialog.shown.isEmpty());
}

void tst_ProviderTexts::failToPlay()
{
    openPlaylist();
    lookAtNextDialog();
    window().onPlaybackError(u"Could not create media for URL: "_s + name);
}

void tst_ProviderTexts::editTheSource()
{
    openPlaylist();
    dialogs.next([this](QDialog &dialog) {
        lookAtNextDialog();
        DialogAnswers::click(dialog, u"Delete Source"_s);
        dialog.reject();
    });
    window().editSource();
    QCOMPARE(inDialog.shown,
             QStringList{u"Delete source \"%1\"? This cannot be undone."_s.arg(name)});
}

void tst_ProviderTexts::areShownAsTheyAre_data()
{
    QTest::addColumn<Step>("step");
    QTest::newRow("a source and a group") << &tst_ProviderTexts::openPlaylist;
    QTest::newRow("a channel of a playlist") << &tst_ProviderTexts::playChannelOfThePlaylist;
    QTest::newRow("a search") << &tst_ProviderTexts::searchForIt;
    QTest::newRow("categories and entries of an account") << &tst_ProviderTexts::openAccount;
    QTest::newRow("a film") << &tst_ProviderTexts::playFilm;
    QTest::newRow("a show and its episodes") << &tst_ProviderTexts::playEpisode;
    QTest::newRow("a failed load") << &tst_ProviderTexts::failToLoad;
    QTest::newRow("a failed stream") << &tst_ProviderTexts::failToPlay;
    QTest::newRow("a question") << &tst_ProviderTexts::editTheSource;
}

void tst_ProviderTexts::areShownAsTheyAre()
{
    QFETCH(const Step, step);
    (this->*step)();
    Texts texts = textsOf(window());
    texts.shown += inDialog.shown;
    texts.interpreted += inDialog.interpreted;
    QCOMPARE(texts.interpreted, QStringList());
    QVERIFY(!texts.shown.isEmpty());
    for (const QString &text : std::as_const(texts.shown)) {
        QVERIFY2(text.contains(name), qPrintable(text));
    }
}

VANTIRO_TEST_MAIN(tst_ProviderTexts)
#include "tst_ProviderTexts.moc"
