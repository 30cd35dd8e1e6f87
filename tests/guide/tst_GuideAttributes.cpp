#include "guide/GuideAttributes.h"
#include "support/TestMain.h"

#include <QJsonDocument>
#include <QTest>

using namespace Qt::StringLiterals;

// What playlists and accounts tell of a channel's guide and archive, however they write it.

namespace {

QString formName(CatchUpForm form)
{
    static const QStringList names{
        u"none"_s,          u"default"_s,      u"append"_s, u"shift"_s,   u"flussonic"_s,
        u"flussonic-hls"_s, u"flussonic-ts"_s, u"xc"_s,     u"account"_s, u"vod"_s};
    return names.at(int(form));
}

/// "id name shift form source days correction", without what is missing: "name=..." and the like.
QString shown(const GuideAttributes &guide)
{
    QStringList parts;
    const auto add = [&parts](const QString &name, const QString &value) {
        parts << name + u'=' + value;
    };
    if (!guide.guideId.isEmpty())
        add(u"id"_s, guide.guideId);
    if (!guide.guideName.isEmpty())
        add(u"name"_s, guide.guideName);
    if (guide.shift)
        add(u"shift"_s, QString::number(*guide.shift));
    if (guide.catchUp.form)
        add(u"form"_s, formName(*guide.catchUp.form));
    if (!guide.catchUp.source.isEmpty())
        add(u"source"_s, guide.catchUp.source);
    if (guide.catchUp.days)
        add(u"days"_s, QString::number(*guide.catchUp.days));
    if (guide.catchUp.correction)
        add(u"correction"_s, QString::number(*guide.catchUp.correction));
    return parts.join(u' ');
}

} // namespace

class tst_GuideAttributes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lines_data();
    void lines();
    void headers_data();
    void headers();
    void accounts_data();
    void accounts();
    void defaults_data();
    void defaults();
};

void tst_GuideAttributes::lines_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &attributes, const QString &expected) {
        QTest::newRow(name) << attributes << expected;
    };
    row("none", "", {});
    row("all",
        R"(tvg-id="a.de" tvg-name="A" tvg-shift="1" catchup="append" )"
        R"(catchup-source="?utc={utc}" catchup-days="3" catchup-correction="-2.5")",
        u"id=a.de name=A shift=3600 form=append source=?utc={utc} days=3 correction=-9000"_s);
    row("keys in any case", R"(TVG-ID="a" Tvg-Name="b" CatchUp="Shift")",
        u"id=a name=b form=shift"_s);
    row("single quotes", R"(tvg-id='a' tvg-name='b "c"')", uR"(id=a name=b "c")"_s);
    row("no quotes", "tvg-id=a tvg-name=b", u"id=a name=b"_s);
    row("commas in a value", R"(tvg-name="News, Sport" tvg-id="a")", u"id=a name=News, Sport"_s);
    row("the first counts", R"(tvg-id="a" tvg-id="b")", u"id=a"_s);
    row("an empty one does not", R"(tvg-id="" tvg-id="b")", u"id=b"_s);
    row("not the end of a longer key", R"(x-tvg-id="a")", {});
    row("not the end of one with an underscore", R"(x_tvg-id="a")", {});
    row("an equals sign without a key", R"(="x" tvg-id="a")", u"id=a"_s);
    row("an equals sign in a value", R"(group-title="tvg-id=a" tvg-name="b")", u"name=b"_s);
    row("without blanks", R"(tvg-id="a"tvg-name="b")", u"id=a name=b"_s);
    row("beyond ASCII", "tvg-name=\"T\xc3\xa9l\xc3\xa9\"", u"name=T\u00e9l\u00e9"_s);

    row("shift of zero", R"(tvg-shift="0")", u"shift=0"_s);
    row("shift with a sign", R"(tvg-shift="+5.5")", u"shift=19800"_s);
    row("shift with a comma", R"(tvg-shift="-0,5")", u"shift=-1800"_s);
    row("shift of nonsense", R"(tvg-shift="x")", {});
    row("shift without an end", R"(tvg-shift="inf")", {});
    row("shift of years", R"(tvg-shift="9999")", {});

    row("type", R"(catchup-type="flussonic-ts")", u"form=flussonic-ts"_s);
    row("type behind an unknown form", R"(catchup="1" catchup-type="fs")", u"form=flussonic"_s);
    row("flussonic-hls", R"(catchup="flussonic-hls")", u"form=flussonic-hls"_s);
    row("xc", R"(catchup="xc")", u"form=xc"_s);
    row("vod", R"(catchup="vod")", u"form=vod"_s);
    row("default", R"(catchup="default")", u"form=default"_s);
    row("no archive", R"(catchup="none")", u"form=none"_s);
    row("unknown", R"(catchup="other")", {});

    row("days of recording", R"(tvg-rec="5")", u"days=5"_s);
    row("days before recording", R"(tvg-rec="5" catchup-days="2")", u"days=2"_s);
    row("recording before the old form", R"(tvg-rec="5" timeshift="2")", u"form=shift days=5"_s);
    row("the old form", R"(timeshift="2")", u"form=shift days=2"_s);
    row("the old form without days", R"(timeshift="0")", u"days=0"_s);
    row("the old form beside another", R"(timeshift="2" catchup="append")",
        u"form=append days=2"_s);
    row("the old form beside a template", R"(timeshift="2" catchup-source="http://h/{utc}")",
        u"source=http://h/{utc} days=2"_s);
    row("half a day", R"(catchup-days="0.5")", u"days=0.5"_s);
    row("no limit", R"(catchup-days="-1")", {});
}

void tst_GuideAttributes::lines()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QString, expected);
    // What stands in the channel's name is not read.
    QCOMPARE(shown(guideAttributesOfLine("#EXTINF:-1 " + attributes)), expected);
    QCOMPARE(shown(guideAttributesOfLine("#EXTINF:-1 " + attributes +
                                         ",A name with tvg-shift=\"3\" and 'quotes")),
             expected);
}

void tst_GuideAttributes::headers_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("addresses");
    QTest::addColumn<QString>("defaults");
    QTest::newRow("none") << "#EXTM3U"_ba << QString() << QString();
    QTest::newRow("x-tvg-url") << R"(#EXTM3U x-tvg-url="http://h/a.xml")"_ba << u"http://h/a.xml"_s
                               << QString();
    QTest::newRow("url-tvg") << R"(#EXTM3U url-tvg="https://h/a.gz")"_ba << u"https://h/a.gz"_s
                             << QString();
    QTest::newRow("tvg-url") << R"(#extm3u TVG-URL='http://h/a')"_ba << u"http://h/a"_s
                             << QString();
    QTest::newRow("no quotes") << "#EXTM3U x-tvg-url=http://h/a?b=c,d m=1"_ba
                               << u"http://h/a?b=c,d"_s << QString();
    QTest::newRow("a quote that nothing closes")
        << R"(#EXTM3U x-tvg-url="http://h/a m)"_ba << u"http://h/a"_s << QString();
    QTest::newRow("a list") << R"(#EXTM3U x-tvg-url="http://h/a, HTTPS://h/b,http://h/c?d=1,2")"_ba
                            << u"http://h/a HTTPS://h/b http://h/c?d=1,2"_s << QString();
    QTest::newRow("no address") << "#EXTM3U x-tvg-url="_ba << QString() << QString();
    QTest::newRow("two keys with one in common")
        << R"(#EXTM3U url-tvg="http://h/a" x-tvg-url="http://h/b,http://h/a")"_ba
        << u"http://h/b http://h/a"_s << QString();
    QTest::newRow("neither files nor the rest")
        << R"(#EXTM3U x-tvg-url="file:///etc/guide.xml" url-tvg="guide.xml")"_ba << QString()
        << QString();
    QTest::newRow("defaults")
        << R"(#EXTM3U tvg-shift=-1 catchup="default" catchup-source="http://h/{utc}" catchup-days=7)"_ba
        << QString() << u"shift=-3600 form=default source=http://h/{utc} days=7"_s;
}

void tst_GuideAttributes::headers()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, addresses);
    QFETCH(QString, defaults);
    const PlaylistGuide guide = playlistGuideOfLine(line);
    QCOMPARE(guide.addresses.join(u' '), addresses);
    QCOMPARE(shown(guide.defaults), defaults);
}

void tst_GuideAttributes::accounts_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &json, const QString &expected) {
        QTest::newRow(name) << json << expected;
    };
    row("complete", R"({"epg_channel_id":"a.de","tv_archive":1,"tv_archive_duration":3})",
        u"id=a.de form=account days=3"_s);
    row("texts", R"({"epg_channel_id":" a ","tv_archive":"1","tv_archive_duration":"3"})",
        u"id=a form=account days=3"_s);
    row("a number for the id", R"({"epg_channel_id":17})", u"id=17"_s);
    row("a flag", R"({"tv_archive":true})", u"form=account"_s);
    row("no archive", R"({"tv_archive":0,"tv_archive_duration":0})", u"form=none days=0"_s);
    row("null", R"({"epg_channel_id":null,"tv_archive":null,"tv_archive_duration":null})", {});
    row("other types", R"({"epg_channel_id":[],"tv_archive":{},"tv_archive_duration":[1]})", {});
    row("nothing", "{}", {});
}

void tst_GuideAttributes::accounts()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, expected);
    QCOMPARE(shown(guideAttributesOfChannel(QJsonDocument::fromJson(json).object())), expected);
}

void tst_GuideAttributes::defaults_data()
{
    QTest::addColumn<QByteArray>("channel");
    QTest::addColumn<QString>("expected");
    QTest::newRow("nothing of its own")
        << ""_ba << u"shift=3600 form=append source=?u days=7 correction=7200"_s;
    QTest::newRow("all of its own")
        << R"(tvg-shift="0" catchup="none" catchup-source="?v" catchup-days="0" catchup-correction="0")"_ba
        << u"shift=0 form=none source=?v days=0 correction=0"_s;
    QTest::newRow("id and name are its own")
        << R"(tvg-id="a" catchup-days="1")"_ba
        << u"id=a shift=3600 form=append source=?u days=1 correction=7200"_s;
}

void tst_GuideAttributes::defaults()
{
    QFETCH(QByteArray, channel);
    QFETCH(QString, expected);
    const GuideAttributes header =
        playlistGuideOfLine(R"(#EXTM3U tvg-id="h" tvg-name="h" tvg-shift="1" catchup="append" )"
                            R"(catchup-source="?u" catchup-days="7" catchup-correction="2")")
            .defaults;
    QCOMPARE(shown(withDefaults(guideAttributesOfLine("#EXTINF:-1 " + channel + ",A"), header)),
             expected);
}

VANTIRO_TEST_GUILESS_MAIN(tst_GuideAttributes)
#include "tst_GuideAttributes.moc"
