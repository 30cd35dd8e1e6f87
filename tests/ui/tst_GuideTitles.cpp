#include "GuideFixture.h"
#include "support/TestMain.h"
#include "ui/GuideTitles.h"

#include <memory>

using namespace Qt::StringLiterals;

/// The titles that the grid keeps of a stored guide.
class tst_GuideTitles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture = std::make_unique<GuideFixture>(); }
    void ofAnEntry();
    void onlyWhatShowsIsAskedFor();
    void withoutAnOpenGuide();

private:
    std::unique_ptr<GuideFixture> fixture;
};

void tst_GuideTitles::ofAnEntry()
{
    GuideTitles titles(nullptr);
    titles.setGuide(&fixture->guide);
    const QString one = fixture->items.at(0).id;
    const QString three = fixture->items.at(2).id;
    // Over several of the blocks in which they are kept.
    titles.want({one, three}, fixture->at(-6), fixture->at(30));
    QVERIFY(!titles.isHere(one, fixture->at(-6), fixture->at(30)));
    QTRY_VERIFY(titles.isHere(one, fixture->at(-6), fixture->at(30)));
    QStringList all;
    const auto programmes = titles.schedule(one, fixture->at(-6), fixture->at(30)).programmes;
    for (const GuideProgramme &programme : programmes)
        all << programme.title;
    QCOMPARE(all, (QStringList{u"Old"_s, u"Running"_s, u"Later"_s, u"Match"_s}));
    QCOMPARE(titles.archiveReach(), 3 * StoredGuide::day);
    QTRY_COMPARE(titles.newest(), fixture->at(20));
    // Not in the guide: it is not asked for again.
    QVERIFY(titles.isHere(three, fixture->at(-6), fixture->at(30)));
    QVERIFY(titles.schedule(three, fixture->at(-6), fixture->at(30)).programmes.isEmpty());
}

void tst_GuideTitles::onlyWhatShowsIsAskedFor()
{
    GuideTitles titles(nullptr);
    titles.setGuide(&fixture->guide);
    const QString one = fixture->items.at(0).id;
    const QString two = fixture->items.at(1).id;
    const QString three = fixture->items.at(2).id;
    const auto isHere = [&](const QString &id) {
        return titles.isHere(id, fixture->now, fixture->now);
    };
    // While the first question is under way the user has scrolled on, twice.
    titles.want({one}, fixture->now, fixture->now);
    titles.want({two}, fixture->now, fixture->now);
    titles.want({three}, fixture->now, fixture->now);
    QTRY_VERIFY(isHere(three));
    QVERIFY(isHere(one));
    QVERIFY(!isHere(two));
}

/// What was wanted meanwhile is asked for as soon as there is one.
void tst_GuideTitles::withoutAnOpenGuide()
{
    GuideTitles titles(nullptr);
    const QString one = fixture->items.at(0).id;
    titles.want({one}, fixture->now, fixture->now);
    QVERIFY(!titles.isHere(one, fixture->now, fixture->now));
    Guide guide(nullptr);
    titles.setGuide(&guide);
    titles.want({one}, fixture->now, fixture->now);
    QVERIFY(!titles.isHere(one, fixture->now, fixture->now));
    guide.open(fixture->stored.path(), 0);
    QTRY_VERIFY(titles.isHere(one, fixture->now, fixture->now));
}

VANTIRO_TEST_MAIN(tst_GuideTitles)
#include "tst_GuideTitles.moc"
