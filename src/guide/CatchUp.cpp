#include "guide/CatchUp.h"

#include "guide/CatchUpTemplate.h"
#include "providers/LenientJson.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QUrl>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 secondsOfDay = 24LL * 60 * 60;
constexpr qint64 secondsOfMinute = 60;

/// An address, and the headers that follow it.
struct AddressParts
{
    QString address;
    QString headers; ///< with the '|'
};

/// A '|' within a placeholder is none of headers.
AddressParts partsOf(const QString &text)
{
    static const QRegularExpression suffix(u"\\|(?![^{}]*\\}).*$"_s);
    const QRegularExpressionMatch match = suffix.match(text);
    const QString headers = match.captured();
    return {text.chopped(headers.size()), headers};
}

bool isWholeAddress(const QString &text)
{
    return text.contains("://"_L1);
}

/// `query` appended to an address, which may have a query already.
QString withQuery(const QString &address, const QString &query)
{
    const bool hasQuery = address.contains(u'?');
    if (query.startsWith(u'?') || query.startsWith(u'&')) {
        return address + (hasQuery ? u'&' : u'?') + query.sliced(1);
    }
    return address + query;
}

/// The last part of a path, and what stands around it.
struct PathParts
{
    QString before;
    QString last;
    QString after; ///< the query
};

std::optional<PathParts> pathPartsOf(const QString &address)
{
    static const QRegularExpression parts(u"^([^?#]+://[^/?#]+/(?:[^?#]*/)?)([^/?#]*)(.*)$"_s);
    const QRegularExpressionMatch match = parts.match(address);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    return PathParts{match.captured(1), match.captured(2), match.captured(3)};
}

/// The template that takes the place of the last part of a path, which tells the kind of stream.
QString flussonicTemplate(const QString &last, CatchUpForm form)
{
    QString hls = u"timeshift_rel-{offset}.m3u8"_s;
    if (last == "index.m3u8"_L1) {
        return hls;
    }
    if (last.endsWith(".m3u8"_L1)) {
        return last.chopped(5) + u'-' + hls;
    }
    return form == CatchUpForm::FlussonicHls && last != "mpegts"_L1 ? hls
                                                                    : u"timeshift_abs-{utc}.ts"_s;
}

QString archiveStart(qint64 seconds, const QTimeZone &zone)
{
    return QDateTime::fromSecsSinceEpoch(seconds, zone).toString(u"yyyy-MM-dd:HH-mm"_s);
}

/// The minutes from the beginning of the minute in which the programme starts to its end.
QString archiveMinutes(const ArchivedProgramme &programme)
{
    const qint64 start = programme.start - programme.start % secondsOfMinute;
    return QString::number((programme.stop - start + secondsOfMinute - 1) / secondsOfMinute);
}

QString accountPath(const XtreamAccount &account, const QString &entry,
                    const ArchivedProgramme &programme, const QTimeZone &zone)
{
    return account.server + "/timeshift/"_L1 + account.username + u'/' + account.password + u'/' +
           archiveMinutes(programme) + u'/' + archiveStart(programme.start, zone) + u'/' + entry;
}

/// The archive of the account that an address holds.
QString xtreamUrl(const QString &address, const ArchivedProgramme &programme, const QTimeZone &zone)
{
    static const QRegularExpression stream(
        u"^(https?://[^?#]+?)(?:/live)?/([^/?#]+)/([^/?#]+)/([^/?#.]+)(?:\\.(\\w+))?(\\?.*)?$"_s);
    const QRegularExpressionMatch match = stream.match(address);
    if (!match.hasMatch()) {
        return {};
    }
    const bool isHls = match.captured(5).startsWith("m3u"_L1);
    const QString entry = match.captured(4) + (isHls ? ".m3u8"_L1 : ".ts"_L1);
    return accountPath({match.captured(1), match.captured(2), match.captured(3)}, entry, programme,
                       zone) +
           match.captured(6);
}

/// The address by a form with a template; `fill` fills one in.
template <typename Fill>
QString templateUrl(const QString &stream, CatchUpForm form, const QString &source, Fill fill)
{
    switch (form) {
    case CatchUpForm::Default:
    case CatchUpForm::Append:
        if (source.isEmpty() || (form == CatchUpForm::Default && isWholeAddress(source))) {
            return fill(source);
        }
        return withQuery(stream, fill(source));
    case CatchUpForm::Shift:
        return withQuery(stream, fill(u"?utc={utc}&lutc={lutc}"_s));
    case CatchUpForm::Flussonic:
    case CatchUpForm::FlussonicHls:
    case CatchUpForm::FlussonicTs:
        if (const auto path = pathPartsOf(stream)) {
            return path->before + fill(flussonicTemplate(path->last, form)) + path->after;
        }
        break;
    case CatchUpForm::Vod:
        return fill(source.isEmpty() ? u"{catchup-id}"_s : source);
    case CatchUpForm::None:
    case CatchUpForm::Xtream:
    case CatchUpForm::Account:
        break;
    }
    return {};
}

/// The form of a channel that names none: a template alone is enough.
CatchUpForm formOf(const CatchUpRules &rules)
{
    const CatchUpForm implied = rules.source.isEmpty() ? CatchUpForm::None : CatchUpForm::Default;
    return rules.form.value_or(implied);
}

/// A value of a query. Accounts are pasted in percent-encoded form as well.
QString encoded(const QString &text)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(text)).replace("%25"_L1, "%"_L1);
}

std::optional<QTimeZone> zoneOfClock(const QJsonObject &server)
{
    constexpr qint64 quarter = 15LL * 60;
    const QDateTime shown =
        QDateTime::fromString(textOf(server.value("time_now"_L1)), u"yyyy-MM-dd HH:mm:ss"_s);
    const std::optional<qint64> now = integerOf(server.value("timestamp_now"_L1));
    if (!shown.isValid() || !now) {
        return std::nullopt;
    }
    const qint64 ahead = QDateTime(shown.date(), shown.time(), Qt::UTC).toSecsSinceEpoch() - *now;
    const qint64 rounded =
        std::llround(static_cast<double>(ahead) / static_cast<double>(quarter)) * quarter;
    const bool isPossible =
        rounded >= QTimeZone::MinUtcOffsetSecs && rounded <= QTimeZone::MaxUtcOffsetSecs;
    return isPossible ? std::optional(QTimeZone(static_cast<int>(rounded))) : std::nullopt;
}

} // namespace

QList<AccountArchiveForm> accountArchiveForms(const QString &liveExtension,
                                              std::optional<AccountArchiveForm> worked)
{
    using enum AccountArchiveForm;
    QList<AccountArchiveForm> forms = liveExtension == "m3u8"_L1 ? QList{PathM3u8, PathTs, Query}
                                                                 : QList{PathTs, PathM3u8, Query};
    if (worked && forms.removeOne(*worked)) {
        forms.prepend(*worked);
    }
    return forms;
}

QString accountCatchUpUrl(const XtreamAccount &account, const QString &streamId,
                          AccountArchiveForm form, const ArchivedProgramme &programme,
                          const QTimeZone &serverZone)
{
    if (form == AccountArchiveForm::Query) {
        return account.server + "/streaming/timeshift.php?username="_L1 +
               encoded(account.username) + "&password="_L1 + encoded(account.password) +
               "&stream="_L1 + encoded(streamId) + "&start="_L1 +
               archiveStart(programme.start, serverZone) + "&duration="_L1 +
               archiveMinutes(programme);
    }
    const QString entry = streamId + (form == AccountArchiveForm::PathM3u8 ? ".m3u8"_L1 : ".ts"_L1);
    return accountPath(account, entry, programme, serverZone);
}

QString playlistCatchUpUrl(const QString &streamUrl, const CatchUpRules &rules,
                           const ArchivedProgramme &programme, const QTimeZone &zone)
{
    ArchivedProgramme corrected = programme;
    corrected.start += rules.correction.value_or(0);
    corrected.stop += rules.correction.value_or(0);
    const AddressParts stream = partsOf(streamUrl);
    const AddressParts source = partsOf(rules.source);
    if (programme.id.isEmpty() && source.address.contains("{catchup-id}"_L1)) {
        return {};
    }
    const CatchUpForm form = formOf(rules);
    const auto fill = [&](const QString &text) {
        return filledCatchUpTemplate(text, corrected, zone);
    };
    const QString address = form == CatchUpForm::Xtream
                                ? xtreamUrl(stream.address, corrected, zone)
                                : templateUrl(stream.address, form, source.address, fill);
    if (address.isEmpty()) {
        return {};
    }
    return address + (source.headers.isEmpty() ? stream.headers : source.headers);
}

qint64 archiveSeconds(const CatchUpRules &rules)
{
    constexpr double usualDays = 7;
    return formOf(rules) == CatchUpForm::None
               ? 0
               : std::llround(rules.days.value_or(usualDays) * secondsOfDay);
}

bool archiveHolds(const CatchUpRules &rules, const ArchivedProgramme &programme)
{
    const qint64 seconds = archiveSeconds(rules);
    return seconds > 0 && programme.start <= programme.now &&
           programme.now - programme.start <= seconds;
}

QTimeZone serverZone(const QJsonDocument &summary)
{
    const QJsonObject server = summary.object().value("server_info"_L1).toObject();
    const QByteArray name = textOf(server.value("timezone"_L1)).toUtf8();
    return QTimeZone::isTimeZoneIdAvailable(name) ? QTimeZone(name)
                                                  : zoneOfClock(server).value_or(QTimeZone::utc());
}
