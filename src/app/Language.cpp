#include "app/Language.h"

#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <algorithm>
#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Texts of Qt itself: file dialogs, menus of text fields, names of keys. Reasons of failed
/// requests are left in English, because they are traced.
class QtTexts final : public QTranslator
{
public:
    using QTranslator::QTranslator;

    QString translate(const char *context, const char *sourceText, const char *disambiguation,
                      int n) const override
    {
        constexpr std::array<QByteArrayView, 12> shown{
            "QAbstractSpinBox", "QComboBox", "QDialogButtonBox",   "QFileDialog",
            "QFileSystemModel", "QLineEdit", "QMessageBox",        "QPlatformTheme",
            "QScrollBar",       "QShortcut", "QCommandLineParser", "QWidgetTextControl",
        };
        return std::find(shown.begin(), shown.end(), QByteArrayView(context)) != shown.end()
                   ? QTranslator::translate(context, sourceText, disambiguation, n)
                   : QString();
    }
};

bool isEnglish(const QString &name)
{
    return QLocale(name).language() == QLocale::English || name == "C"_L1 || name == "POSIX"_L1;
}

QString fileOf(const QString &code)
{
    return u":/languages/vantiro_%1.qm"_s.arg(code);
}

/// The code of a locale's language, if the program has its texts.
QString codeOf(const QString &name)
{
    const QLocale locale(name);
    if (locale.language() == QLocale::C) {
        return {};
    }
    const QString code = QLocale::languageToCode(locale.language());
    return QFile::exists(fileOf(code)) ? code : QString();
}

/// Installs Qt's own texts where its installation has them.
void installQtTexts(const QString &code)
{
    // Qt has Brazilian Portuguese only.
    const QString name = code == "pt"_L1 ? u"pt_BR"_s : code;
    auto texts = std::make_unique<QtTexts>(QCoreApplication::instance());
    for (const QString &folder : {QLibraryInfo::path(QLibraryInfo::TranslationsPath),
                                  QCoreApplication::applicationDirPath() + "/translations"_L1}) {
        // Qt's deployment tool for Windows puts all modules in one file.
        for (const QLatin1StringView module : {"qtbase_"_L1, "qt_"_L1}) {
            if (texts->load(module + name, folder)) {
                QCoreApplication::installTranslator(texts.release());
                return;
            }
        }
    }
}

/// As names, addresses and what the user types have in any language. Of the languages that the
/// program has, only Arabic has others, and not in all countries.
bool hasLatinDigits(const QLocale &locale)
{
    return locale.zeroDigit() == "0"_L1;
}

} // namespace

QString Language::choose(const QString &wanted, const QStringList &systemLanguages)
{
    if (!wanted.isEmpty()) {
        return codeOf(wanted);
    }
    for (const QString &name : systemLanguages) {
        if (isEnglish(name)) {
            return {};
        }
        if (QString code = codeOf(name); !code.isEmpty()) {
            return code;
        }
    }
    return {};
}

void Language::apply()
{
    const QString wanted = qEnvironmentVariable("VANTIRO_LANGUAGE");
    const QString code = choose(wanted, QLocale::system().uiLanguages());
    if (code.isEmpty()) {
        return;
    }
    auto texts = std::make_unique<QTranslator>(QCoreApplication::instance());
    if (!texts->load(fileOf(code))) {
        return;
    }
    installQtTexts(code);
    // What is installed later is asked first.
    QCoreApplication::installTranslator(texts.release());

    const QLocale locale(wanted.isEmpty() ? code : wanted);
    const bool isOwnChoice = !wanted.isEmpty() && QLocale::system().language() != locale.language();
    if (isOwnChoice || !hasLatinDigits(QLocale())) {
        QLocale::setDefault(hasLatinDigits(locale)
                                ? locale
                                : QLocale(locale.language(), QLocale::UnitedArabEmirates));
    }
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()) != nullptr) {
        QGuiApplication::setLayoutDirection(locale.textDirection());
    }
}
