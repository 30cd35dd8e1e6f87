// Which language the window speaks, by the user's choice and by the system's languages. The program
// itself shows it in the answer to --help.

#include "app/Language.h"
#include "player/VlcPlayer.h"
#include "support/TestMain.h"

#include <QLocale>
#include <QProcess>
#include <QTest>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {

const QStringList languages{u"ar"_s, u"de"_s, u"es"_s, u"fr"_s, u"it"_s,
                            u"pl"_s, u"pt"_s, u"ru"_s, u"tr"_s};

QString inMoreMenu(const char *text)
{
    return QCoreApplication::translate("MoreMenu", text);
}

/// What the program tells of itself with these variables.
QString description(const QList<std::pair<QString, QString>> &variables)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const auto &[name, value] : variables) {
        environment.insert(name, value);
    }
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(VANTIRO_PLAYER), {u"--help"_s});
    if (!process.waitForFinished()) {
        return {};
    }
    const QString answer = QString::fromLocal8Bit(process.readAllStandardOutput());
    return answer.section(u'\n', 1, 1).trimmed();
}

} // namespace

class tst_Language : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void chosen_data();
    void chosen();
    void variableChooses_data();
    void variableChooses();
    void systemChooses_data();
    void systemChooses();
    void englishIsWordForWord_data();
    void englishIsWordForWord();
    void everyLanguageIsThere();
    void arabicRunsRightToLeft();
    void formatsFollowTheChosenLanguage();
    void digitsAreLatin_data();
    void digitsAreLatin();
    void buttonsOfQtAreTranslated();
    void pluralForms_data();
    void pluralForms();
    void tracedTextsStayEnglish();

private:
    static void applyLanguage(const char *code)
    {
        qputenv("VANTIRO_LANGUAGE", code);
        Language::apply();
    }
};

void tst_Language::cleanup()
{
    for (QTranslator *translator : qApp->findChildren<QTranslator *>()) {
        delete translator;
    }
    qunsetenv("VANTIRO_LANGUAGE");
    QLocale::setDefault(QLocale::system());
    QGuiApplication::setLayoutDirection(Qt::LayoutDirectionAuto);
}

void tst_Language::chosen_data()
{
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<QStringList>("system");
    QTest::addColumn<QString>("code");

    const QStringList german{u"de-DE"_s, u"de"_s};
    QTest::newRow("the system's") << QString() << german << u"de"_s;
    QTest::newRow("the user's choice goes first") << u"fr"_s << german << u"fr"_s;
    QTest::newRow("with a country") << u"pt_BR"_s << german << u"pt"_s;
    QTest::newRow("with a country and an encoding") << u"ru_RU.UTF-8"_s << german << u"ru"_s;
    QTest::newRow("English is wanted") << u"en"_s << german << QString();
    QTest::newRow("British English is wanted") << u"en_GB"_s << german << QString();
    QTest::newRow("POSIX is wanted") << u"POSIX"_s << german << QString();
    QTest::newRow("C is wanted") << u"C"_s << german << QString();
    QTest::newRow("what is wanted is unknown") << u"klingon"_s << german << QString();
    QTest::newRow("what is wanted is not translated") << u"fi"_s << german << QString();
    QTest::newRow("a path is wanted") << u"../de"_s << german << QString();
    QTest::newRow("the second one of the system")
        << QString() << QStringList{u"fi-FI"_s, u"it-IT"_s} << u"it"_s;
    QTest::newRow("English before another one")
        << QString() << QStringList{u"en-US"_s, u"de-DE"_s} << QString();
    QTest::newRow("English after another one")
        << QString() << QStringList{u"tr-TR"_s, u"en-US"_s} << u"tr"_s;
    QTest::newRow("with a script") << QString() << QStringList{u"ar-Arab-EG"_s} << u"ar"_s;
    QTest::newRow("none of the system's") << QString() << QStringList{u"fi"_s} << QString();
    QTest::newRow("the system has none") << QString() << QStringList{} << QString();
    QTest::newRow("the system is POSIX")
        << QString() << QStringList{u"POSIX"_s, u"de"_s} << QString();
    QTest::newRow("the system is C") << QString() << QStringList{u"C"_s, u"de"_s} << QString();
}

void tst_Language::chosen()
{
    QFETCH(QString, wanted);
    QFETCH(QStringList, system);
    QTEST(Language::choose(wanted, system), "code");
}

void tst_Language::variableChooses_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");
    const QString english = u"A player for internet television."_s;
    QTest::newRow("German") << u"de"_s << u"Ein Player für Internetfernsehen."_s;
    QTest::newRow("Brazilian") << u"pt_BR"_s << u"Um reprodutor para televisão pela Internet."_s;
    QTest::newRow("English") << u"en"_s << english;
    QTest::newRow("unknown") << u"klingon"_s << english;
}

void tst_Language::variableChooses()
{
    QFETCH(QString, value);
    QTEST(description({{u"LANGUAGE"_s, u"fr"_s}, {u"VANTIRO_LANGUAGE"_s, value}}), "text");
}

void tst_Language::systemChooses_data()
{
    QTest::addColumn<QString>("inOrder");
    QTest::addColumn<QString>("text");
    QTest::newRow("German") << u"de_AT"_s << u"Ein Player für Internetfernsehen."_s;
    QTest::newRow("Finnish, then Polish") << u"fi:pl"_s << u"Odtwarzacz telewizji internetowej."_s;
    QTest::newRow("English, then German")
        << u"en_US:de"_s << u"A player for internet television."_s;
}

void tst_Language::systemChooses()
{
#ifndef Q_OS_LINUX
    QSKIP("The environment tells the system's languages on Linux only.");
#else
    QFETCH(const QString, inOrder);
    QTEST(description({{u"LANGUAGE"_s, inOrder}}), "text");
#endif
}

void tst_Language::englishIsWordForWord_data()
{
    QTest::addColumn<QByteArray>("value");
    for (const char *value : {"", "en", "C", "klingon"}) {
        QTest::newRow(value) << QByteArray(value);
    }
}

void tst_Language::englishIsWordForWord()
{
    QFETCH(QByteArray, value);
    const QLocale before;
    applyLanguage(value.constData());
    QCOMPARE(qApp->findChildren<QTranslator *>().size(), 0);
    QCOMPARE(inMoreMenu("Account Information..."), u"Account Information..."_s);
    QCOMPARE(QLocale(), before);
    QCOMPARE(QGuiApplication::layoutDirection(), Qt::LeftToRight);
}

void tst_Language::everyLanguageIsThere()
{
    for (const QString &code : languages) {
        applyLanguage(qUtf8Printable(code));
        QVERIFY2(inMoreMenu("Account Information...") != "Account Information..."_L1,
                 qUtf8Printable(code));
        QCOMPARE(QGuiApplication::layoutDirection(),
                 code == "ar"_L1 ? Qt::RightToLeft : Qt::LeftToRight);
        cleanup();
    }
}

void tst_Language::arabicRunsRightToLeft()
{
    applyLanguage("ar");
    QCOMPARE(QGuiApplication::layoutDirection(), Qt::RightToLeft);
    QCOMPARE(inMoreMenu("About"), u"حول"_s);
}

void tst_Language::formatsFollowTheChosenLanguage()
{
    applyLanguage("de");
    QCOMPARE(QLocale().toString(1234567), u"1.234.567"_s);
    QCOMPARE(QLocale().dayName(1), u"Montag"_s);
}

void tst_Language::digitsAreLatin_data()
{
    QTest::addColumn<QByteArray>("wanted");
    QTest::addColumn<QByteArray>("system"); ///< its languages, and its formats
    QTest::newRow("Arabic") << "ar"_ba
                            << "C"_ba;
    QTest::newRow("as in Egypt") << "ar_EG"_ba
                                 << "C"_ba;
    QTest::newRow("as in Morocco") << "ar_MA"_ba
                                   << "C"_ba;
#ifndef Q_OS_WIN // whose language no variable sets
    QTest::newRow("an Arabic system") << ""_ba
                                      << "ar_EG"_ba;
#endif
}

void tst_Language::digitsAreLatin()
{
    QFETCH(QByteArray, wanted);
    QFETCH(QByteArray, system);
    qputenv("LANGUAGE", system);
    QLocale::setDefault(QLocale(QString::fromLatin1(system)));
    applyLanguage(wanted.constData());
    qunsetenv("LANGUAGE");
    const QLocale locale;
    QCOMPARE(locale.language(), QLocale::Arabic);
    QCOMPARE(locale.dayName(1), u"الاثنين"_s);
    QCOMPARE(locale.toString(2026).remove(locale.groupSeparator()), u"2026"_s);
    QVERIFY(locale.toString(QDate(2026, 1, 31), QLocale::ShortFormat).contains("31"_L1));
}

void tst_Language::buttonsOfQtAreTranslated()
{
    applyLanguage("de");
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), u"Abbrechen"_s);
    QCOMPARE(QCoreApplication::translate("QLineEdit", "&Copy"), u"&Kopieren"_s);
}

void tst_Language::pluralForms_data()
{
    QTest::addColumn<QByteArray>("language");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("text");
    QTest::newRow("English, one") << "en"_ba << 1 << u"A: 1 programmes."_s;
    QTest::newRow("German, one") << "de"_ba << 1 << u"A: 1 Sendung."_s;
    QTest::newRow("German, many") << "de"_ba << 1200 << u"A: 1.200 Sendungen."_s;
    QTest::newRow("French, none") << "fr"_ba << 0 << u"A\u00a0: 0 programme."_s;
    QTest::newRow("Polish, one") << "pl"_ba << 1 << u"A: 1 audycja."_s;
    QTest::newRow("Polish, few") << "pl"_ba << 22 << u"A: 22 audycje."_s;
    QTest::newRow("Polish, many") << "pl"_ba << 12 << u"A: 12 audycji."_s;
    QTest::newRow("Russian, one") << "ru"_ba << 21 << u"A: 21 передача."_s;
    QTest::newRow("Russian, few") << "ru"_ba << 3 << u"A: 3 передачи."_s;
    QTest::newRow("Russian, many") << "ru"_ba << 11 << u"A: 11 передач."_s;
    QTest::newRow("Arabic, many") << "ar"_ba << 12 << u"\u200fA: 12 برنامجًا."_s;
    QTest::newRow("Turkish, many") << "tr"_ba << 5 << u"A: 5 program."_s;
}

void tst_Language::pluralForms()
{
    QFETCH(QByteArray, language);
    QFETCH(int, count);
    applyLanguage(language.constData());
    QTEST(QCoreApplication::translate("GuideResult", "%1: %Ln programmes.", nullptr, count)
              .arg(u"A"_s),
          "text");
}

void tst_Language::tracedTextsStayEnglish()
{
    applyLanguage("de");
    // What a failed request tells is traced.
    QCOMPARE(QCoreApplication::translate("QAbstractSocket", "Connection refused"),
             u"Connection refused"_s);
    // The reason of a reconnect is traced as the player reports it, and shown in German.
    QCOMPARE(VlcPlayer::shownReason(u"The live stream stopped sending data."_s),
             u"Der Livestream sendet keine Daten mehr."_s);
    QCOMPARE(VlcPlayer::shownReason(u"The stream stopped advancing for 15 seconds."_s),
             u"Der Stream ist seit 15 Sekunden nicht vorangekommen."_s);
    QCOMPARE(VlcPlayer::shownReason(u"something else"_s), u"something else"_s);
}

VANTIRO_TEST_MAIN(tst_Language)
#include "tst_Language.moc"
