#include "guide/GuideAttributes.h"

#include "providers/LenientJson.h"
#include "providers/WebUrl.h"

#include <QHash>
#include <QRegularExpression>
#include <QUrl>

#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Attributes = QHash<QString, QString>;

bool isKeyCharacter(QChar character)
{
    return character.isLetterOrNumber() || character == u'-' || character == u'_';
}

/// Reads `key=value` pairs from a line.
class AttributeScanner
{
public:
    /// `endsAtComma`: the attributes end at the last comma outside a value.
    AttributeScanner(QString text, bool endsAtComma)
        : line(std::move(text))
        , hasName(endsAtComma)
    {}

    Attributes read()
    {
        while (position < line.size()) {
            if (line.at(position) == u'=') {
                readValue();
            } else {
                endBeforeComma();
                ++position;
            }
        }
        return hasName && sawComma ? beforeComma : found;
    }

private:
    void endBeforeComma()
    {
        if (hasName && line.at(position) == u',') {
            sawComma = true;
            beforeComma = found;
        }
    }

    void readValue()
    {
        qsizetype keyStart = position;
        while (keyStart > 0 && isKeyCharacter(line.at(keyStart - 1))) {
            --keyStart;
        }
        const QString key = line.sliced(keyStart, position - keyStart).toLower();
        ++position;
        const QString value = takeValue();
        if (!key.isEmpty() && !value.isEmpty() && !found.contains(key)) {
            found.insert(key, value);
        }
    }

    /// The value that begins here. One whose quote is not closed ends like one without quotes.
    QString takeValue()
    {
        const QChar quote = position < line.size() ? line.at(position) : QChar();
        const bool isQuoted = quote == u'"' || quote == u'\'';
        const qsizetype start = isQuoted ? position + 1 : position;
        const qsizetype end = isQuoted ? line.indexOf(quote, start) : -1;
        if (end >= 0) {
            position = end + 1;
            return line.sliced(start, end - start).trimmed();
        }
        position = start;
        while (position < line.size() && !line.at(position).isSpace() &&
               !(hasName && line.at(position) == u',')) {
            ++position;
        }
        return line.sliced(start, position - start);
    }

    QString line;
    bool hasName;
    qsizetype position = 0;
    bool sawComma = false;
    Attributes found;
    Attributes beforeComma;
};

/// A number with a decimal point or comma.
std::optional<double> numberOf(const QString &text)
{
    bool isNumber = false;
    const double number = QString(text).replace(u',', u'.').trimmed().toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

/// Hours as seconds. More than two days are a mistake.
std::optional<qint64> hoursAsSeconds(const QString &text)
{
    constexpr double mostHours = 48;
    constexpr double hour = 3600;
    const std::optional<double> hours = numberOf(text);
    return hours && std::abs(*hours) <= mostHours ? std::optional(std::llround(*hours * hour))
                                                  : std::nullopt;
}

/// A number of days; a negative one tells nothing.
std::optional<double> daysOf(const QString &text)
{
    const std::optional<double> days = numberOf(text);
    return days && *days >= 0 ? days : std::nullopt;
}

std::optional<CatchUpForm> formOf(const QString &text)
{
    static const QHash<QString, CatchUpForm> forms{
        {u"default"_s, CatchUpForm::Default},
        {u"append"_s, CatchUpForm::Append},
        {u"shift"_s, CatchUpForm::Shift},
        {u"timeshift"_s, CatchUpForm::Shift},
        {u"flussonic"_s, CatchUpForm::Flussonic},
        {u"fs"_s, CatchUpForm::Flussonic},
        {u"flussonic-hls"_s, CatchUpForm::FlussonicHls},
        {u"flussonic-ts"_s, CatchUpForm::FlussonicTs},
        {u"xc"_s, CatchUpForm::Xtream},
        {u"vod"_s, CatchUpForm::Vod},
        {u"none"_s, CatchUpForm::None},
        {u"disabled"_s, CatchUpForm::None},
        {u"false"_s, CatchUpForm::None},
        {u"no"_s, CatchUpForm::None},
        {u"0"_s, CatchUpForm::None},
    };
    const auto form = forms.constFind(text.trimmed().toLower());
    return form == forms.constEnd() ? std::nullopt : std::optional(*form);
}

CatchUpRules catchUpOf(const Attributes &attributes)
{
    CatchUpRules rules;
    rules.form = formOf(attributes.value(u"catchup"_s));
    if (!rules.form) {
        rules.form = formOf(attributes.value(u"catchup-type"_s));
    }
    rules.source = attributes.value(u"catchup-source"_s);
    rules.correction = hoursAsSeconds(attributes.value(u"catchup-correction"_s));
    rules.days = daysOf(attributes.value(u"catchup-days"_s));
    if (!rules.days) {
        rules.days = daysOf(attributes.value(u"tvg-rec"_s));
    }
    // An older way to write both the days and the form.
    const std::optional<double> shiftDays = daysOf(attributes.value(u"timeshift"_s));
    if (!rules.form && rules.source.isEmpty() && shiftDays.value_or(0) > 0) {
        rules.form = CatchUpForm::Shift;
    }
    if (!rules.days) {
        rules.days = shiftDays;
    }
    return rules;
}

GuideAttributes guideAttributesOf(const Attributes &attributes)
{
    GuideAttributes guide;
    guide.guideId = attributes.value(u"tvg-id"_s);
    guide.guideName = attributes.value(u"tvg-name"_s);
    guide.shift = hoursAsSeconds(attributes.value(u"tvg-shift"_s));
    guide.catchUp = catchUpOf(attributes);
    return guide;
}

/// Takes over what `value` lacks.
template <typename Value>
void fillFrom(std::optional<Value> &value, const std::optional<Value> &fallback)
{
    if (!value) {
        value = fallback;
    }
}

} // namespace

GuideAttributes guideAttributesOfLine(QByteArrayView line)
{
    return guideAttributesOf(AttributeScanner(QString::fromUtf8(line), true).read());
}

PlaylistGuide playlistGuideOfLine(QByteArrayView line)
{
    // An address may hold commas of its own.
    static const QRegularExpression nextAddress(u",\\s*(?=https?://)"_s,
                                                QRegularExpression::CaseInsensitiveOption);
    const Attributes attributes = AttributeScanner(QString::fromUtf8(line), false).read();
    PlaylistGuide guide;
    guide.defaults = guideAttributesOf(attributes);
    for (const QString &key : {u"x-tvg-url"_s, u"url-tvg"_s, u"tvg-url"_s}) {
        const QStringList addresses = attributes.value(key).split(nextAddress);
        for (const QString &address : addresses) {
            const QString trimmed = address.trimmed();
            if (isWebUrl(QUrl(trimmed)) && !guide.addresses.contains(trimmed)) {
                guide.addresses << trimmed;
            }
        }
    }
    return guide;
}

GuideAttributes guideAttributesOfChannel(const QJsonObject &channel)
{
    GuideAttributes guide;
    guide.guideId = textOf(channel.value("epg_channel_id"_L1));
    const std::optional<bool> hasArchive = flagOf(channel.value("tv_archive"_L1));
    if (hasArchive) {
        guide.catchUp.form = *hasArchive ? CatchUpForm::Account : CatchUpForm::None;
    }
    guide.catchUp.days = daysOf(textOf(channel.value("tv_archive_duration"_L1)));
    return guide;
}

GuideAttributes withDefaults(GuideAttributes channel, const GuideAttributes &defaults)
{
    fillFrom(channel.shift, defaults.shift);
    fillFrom(channel.catchUp.form, defaults.catchUp.form);
    fillFrom(channel.catchUp.days, defaults.catchUp.days);
    fillFrom(channel.catchUp.correction, defaults.catchUp.correction);
    if (channel.catchUp.source.isEmpty()) {
        channel.catchUp.source = defaults.catchUp.source;
    }
    return channel;
}
