#pragma once

#include <QList>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

/// How the program under test looks: in English and in its usual size, unless the environment of
/// the test says otherwise.
namespace desktop::Appearance {

/// What VANTIRO_TOUR_LANGUAGE says, such as "de"; empty for English.
QString language();
/// What VANTIRO_TOUR_SCALE says: how many pixels of the screen one of the program's is wide.
int scale();

/// What the program may show where it shows this in English: the text itself, and its translations
/// into the language. A text may have its values in it already.
QStringList textsFor(const QString &english);

/// The texts of a .ts file with their translations, as they show, without accelerators. Those
/// for a count are left out. A text of several lines is several texts as well.
class Translations final
{
public:
    explicit Translations(const QString &path);
    /// As textsFor(); without a translation, the text alone.
    QStringList of(const QString &english) const;

private:
    struct Text
    {
        QRegularExpression pattern; ///< of the English text
        QString translated;
    };
    void add(const QString &english, const QString &translated);

    QList<Text> texts;
};

} // namespace desktop::Appearance
