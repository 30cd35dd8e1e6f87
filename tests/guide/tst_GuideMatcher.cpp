#include "guide/GuideMatcher.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QTest>

using namespace Qt::StringLiterals;

// Which channel of a guide a channel of a source is.

namespace {

QString shown(const GuideMatch &match)
{
    static const QStringList rules{u"none"_s, u"id"_s, u"guide name"_s, u"name"_s, u"suggestion"_s};
    return match.id.isEmpty() ? rules.at(int(match.rule))
                              : rules.at(int(match.rule)) + u": "_s + match.id;
}

} // namespace

class tst_GuideMatcher : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rules_data();
    void rules();
    void suggestions_data();
    void suggestions();
    void withoutAnId();
    void manyChannels();
};

void tst_GuideMatcher::rules_data()
{
    QTest::addColumn<QString>("guideId");
    QTest::addColumn<QString>("guideName");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    const QString none;
    const auto row = [](const char *name, const QString &guideId, const QString &guideName,
                        const QString &channelName, const QString &expected) {
        QTest::newRow(name) << guideId << guideName << channelName << expected;
    };
    row("id", u"one.de"_s, none, none, u"id: One.de"_s);
    row("id with white space", u" One.de "_s, none, none, u"id: One.de"_s);
    row("id beyond ASCII", u"T\u00c9L\u00c9.FR"_s, none, none, u"id: t\u00e9l\u00e9.fr"_s);
    row("id of another composition", u"te\u0301le\u0301.fr"_s, none, none,
        u"id: t\u00e9l\u00e9.fr"_s);
    row("id before the names", u"one.de"_s, u"Two"_s, u"Two"_s, u"id: One.de"_s);
    row("guide name", none, u"ONE"_s, none, u"guide name: One.de"_s);
    row("guide name, another of the channel", none, u"the first"_s, none, u"guide name: One.de"_s);
    row("guide name with underscores", none, u"The_First"_s, none, u"guide name: One.de"_s);
    row("guide name with many blanks", none, u"  the   first "_s, none, u"guide name: One.de"_s);
    row("underscores in the guide", none, u"number two"_s, none, u"guide name: two"_s);
    row("guide name before the channel's", none, u"One"_s, u"Two"_s, u"guide name: One.de"_s);
    row("guide name behind an unknown id", u"x"_s, u"One"_s, none, u"guide name: One.de"_s);
    row("channel's name", u"x"_s, u"x"_s, u"t\u00c9l\u00c9"_s, u"name: t\u00e9l\u00e9.fr"_s);
    row("the first of equal names", none, none, u"Twin"_s, u"name: twin-1"_s);
    row("the first of equal ids", u"TWIN-1"_s, none, none, u"id: twin-1"_s);
    row("nothing", none, none, none, u"none"_s);
    row("unknown", u"x"_s, u"y"_s, u"z"_s, u"none"_s);
}

void tst_GuideMatcher::rules()
{
    QFETCH(QString, guideId);
    QFETCH(QString, guideName);
    QFETCH(QString, name);
    QFETCH(QString, expected);
    GuideMatcher matcher;
    matcher.addChannel(u"One.de"_s, {u"One"_s, u"The First"_s});
    matcher.addChannel(u"two"_s, {u"Two"_s, u"Number_Two"_s});
    matcher.addChannel(u"t\u00e9l\u00e9.fr"_s, {u"T\u00e9l\u00e9"_s});
    matcher.addChannel(u"twin-1"_s, {u"Twin"_s});
    matcher.addChannel(u"twin-2"_s, {u"Twin"_s});
    matcher.addChannel(u"Twin-1"_s, {u"Triplet"_s, QString()});
    QCOMPARE(shown(matcher.match(guideId, guideName, name)), expected);
}

void tst_GuideMatcher::suggestions_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("id"); ///< empty: no suggestion
    const auto row = [](const QString &name, const QString &id) {
        QTest::newRow(qPrintable(name)) << name << id;
    };
    const QString none;
    row(u"News HD"_s, u"news"_s);
    row(u"News FHD H265"_s, u"news"_s);
    row(u"UHD | News | 4K"_s, u"news"_s);
    row(u"News 1080p SD"_s, u"news"_s);
    row(u"News\u1d34\u1d30"_s, u"news"_s);  // raised HD
    row(u"News \u2074\u1d37"_s, u"news"_s); // raised 4K
    row(u"News\u00b2"_s, u"news2"_s);       // a raised digit is one
    row(u"NE: News"_s, u"news"_s);
    row(u"NE - News"_s, u"news"_s);
    row(u"NE | News HD"_s, u"news"_s);
    row(u"[NE] News (backup)"_s, u"news"_s);
    row(u"|NE| News"_s, u"news"_s);
    row(u"{NE} News"_s, u"news"_s);
    row(u"News (HD) [multi"_s, none);
    row(u"N-e-w-s"_s, u"news"_s);
    row(u"N\u00e9ws HD"_s, u"news"_s);
    row(u"News +1 HD"_s, u"news+1"_s);
    row(u"News HD 2"_s, u"news2"_s);
    row(u"HD"_s, none);
    row(u"(HD)"_s, none);
    row(u"News Extra"_s, none);
    row(u"\u0928\u094d\u092f\u0942\u091c\u093c HD"_s, u"hindi"_s); // its marks are letters
    // Two letters are a mark only in front of a sign, in capitals, and with a name behind it.
    row(u"EM-TV HD"_s, u"emtv"_s);
    row(u"EM TV HD"_s, u"emtv"_s);
    row(u"M6: News"_s, none);
    // Of several countries.
    row(u"DE: Sky News HD"_s, u"Sky.de"_s);
    row(u"Sky News HD (UK)"_s, u"Sky.uk"_s);
    row(u"GB: Sky News"_s, u"Sky.uk"_s);
    row(u"FR: Sky News"_s, none);
    row(u"Sky News 4K"_s, u"Sky.uk"_s); // the shortest name
    row(u"FR: Documentary"_s, u"documentary"_s);
    // That of the country goes before a shorter name of none.
    row(u"FR: History"_s, u"history.fr"_s);
    row(u"History HD"_s, u"history"_s);
    row(u"NE-"_s, none);
    row(u"NE"_s, none);
    row(u"TV: News"_s, none);
}

void tst_GuideMatcher::suggestions()
{
    QFETCH(QString, name);
    QFETCH(QString, id);
    GuideMatcher matcher;
    matcher.addChannel(u"hd"_s, {u"HD 4K"_s});
    matcher.addChannel(u"news"_s, {u"The News"_s, u"News"_s});
    matcher.addChannel(u"news2"_s, {u"News 2"_s});
    matcher.addChannel(u"news+1"_s, {u"News +1"_s});
    matcher.addChannel(u"hindi"_s, {u"\u0928\u094d\u092f\u0942\u091c\u093c"_s});
    matcher.addChannel(u"hindi-2"_s, {u"\u0928\u092f\u091c"_s});
    matcher.addChannel(u"emtv"_s, {u"EMTV"_s});
    matcher.addChannel(u"Sky.de"_s, {u"Sky News FHD"_s});
    matcher.addChannel(u"Sky.uk"_s, {u"Sky News."_s});
    matcher.addChannel(u"history"_s, {u"History"_s});
    matcher.addChannel(u"history.fr"_s, {u"FR: History HD"_s});
    matcher.addChannel(u"documentary"_s, {u"Documentary HD"_s});
    const QString expected = id.isEmpty() ? u"none"_s : u"suggestion: "_s + id;
    QCOMPARE(shown(matcher.match({}, {}, name)), expected);
    // The name that the source gives for the guide comes first.
    QCOMPARE(shown(matcher.match({}, name, u"Documentary UHD"_s)),
             id.isEmpty() ? u"suggestion: documentary"_s : expected);
}

void tst_GuideMatcher::withoutAnId()
{
    GuideMatcher matcher;
    matcher.addChannel(QString(), {u"News"_s});
    matcher.addChannel(u" "_s, {u"News"_s});
    QCOMPARE(matcher.match({}, u"News"_s, u"News"_s), GuideMatch());
}

void tst_GuideMatcher::manyChannels()
{
    // A look-up that compares with every channel of the guide runs into the time limit.
    constexpr int guideChannels = 20'000;
    constexpr int channels = 45'000;
    QElapsedTimer timer;
    timer.start();
    GuideMatcher matcher;
    for (int number = 0; number < guideChannels; ++number) {
        const QString text = QString::number(number);
        matcher.addChannel(u"Channel."_s + text + u".de"_s,
                           {u"Channel "_s + text, u"Sender \u00e4 "_s + text});
    }
    const qint64 built = timer.restart();
    QHash<GuideMatch::Rule, int> found;
    for (int number = 0; number < channels; ++number) {
        const QString text = QString::number(number % guideChannels);
        const int kind = number % 5;
        const QString guideId = kind == 0 ? u"channel."_s + text + u".DE"_s : u"x"_s;
        const QString guideName = kind == 1 ? u"SENDER_\u00c4_"_s + text : QString();
        const QStringList names{u"-"_s, u"-"_s, u"channel "_s + text,
                                u"DE: Channel "_s + text + u" \u1d34\u1d30"_s, u"Other "_s + text};
        ++found[matcher.match(guideId, guideName, names.at(kind)).rule];
    }
    const qint64 matched = timer.elapsed();
    using Rule = GuideMatch::Rule;
    for (const Rule rule :
         {Rule::None, Rule::Id, Rule::GuideName, Rule::ChannelName, Rule::Suggestion}) {
        QCOMPARE(found.value(rule), channels / 5);
    }
    qInfo("%d channels of a guide in %lld ms, %d channels matched in %lld ms", guideChannels, built,
          channels, matched);
}

VANTIRO_TEST_GUILESS_MAIN(tst_GuideMatcher)
#include "tst_GuideMatcher.moc"
