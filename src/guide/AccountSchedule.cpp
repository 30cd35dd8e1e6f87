#include "guide/AccountSchedule.h"

#include "providers/LenientJson.h"

#include <QByteArray>
#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>
#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isControl(QChar character)
{
    return character.category() == QChar::Other_Control && !character.isSpace();
}

/// Titles and descriptions are Base64 of UTF-8 on most servers, and themselves on others.
QString readText(const QJsonValue &value)
{
    QString text = textOf(value);
    const auto bytes =
        QByteArray::fromBase64Encoding(text.toUtf8(), QByteArray::AbortOnBase64DecodingErrors);
    constexpr qsizetype group = 4;
    if (!bytes || text.size() % group != 0) {
        return text;
    }
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = utf8.decode(*bytes);
    const bool isText =
        !utf8.hasError() && std::none_of(decoded.cbegin(), decoded.cend(), isControl);
    return isText ? decoded.trimmed() : text;
}

/// Seconds since the epoch, from a number or from a wall clock of the server; nothing for neither.
std::optional<qint64> readTime(const QJsonValue &seconds, const QJsonValue &clock,
                               const QTimeZone &zone)
{
    const std::optional<qint64> number = integerOf(seconds);
    if (number && *number > 0) {
        return number;
    }
    const QString text = textOf(clock);
    for (const QString &format : {u"yyyy-MM-dd HH:mm:ss"_s, u"yyyy-MM-dd HH:mm"_s,
                                  u"yyyy-MM-ddTHH:mm:ss"_s, u"yyyyMMddHHmmss"_s}) {
        const QDateTime time = QDateTime::fromString(text, format);
        if (time.isValid()) {
            return QDateTime(time.date(), time.time(), zone).toSecsSinceEpoch();
        }
    }
    return std::nullopt;
}

std::optional<ScheduledProgramme> readProgramme(const QJsonObject &listing, const QTimeZone &zone)
{
    const auto start =
        readTime(listing.value("start_timestamp"_L1), listing.value("start"_L1), zone);
    if (!start) {
        return std::nullopt;
    }
    const QJsonValue end =
        listing.contains("end"_L1) ? listing.value("end"_L1) : listing.value("stop"_L1);
    ScheduledProgramme programme;
    programme.start = *start;
    programme.stop = readTime(listing.value("stop_timestamp"_L1), end, zone).value_or(0);
    programme.title = readText(listing.value("title"_L1));
    programme.description = readText(listing.value("description"_L1));
    programme.inArchive = flagOf(listing.value("has_archive"_L1)).value_or(false);
    return programme;
}

/// Sorts by the starts, keeps the last programme of each, and ends each at the next one at the
/// latest.
void putInOrder(QList<ScheduledProgramme> &programmes)
{
    constexpr qint64 longestGuess = 6LL * 60 * 60;
    std::stable_sort(programmes.begin(), programmes.end(),
                     [](const auto &left, const auto &right) { return left.start < right.start; });
    qsizetype kept = 0;
    for (qsizetype index = 0; index < programmes.size(); ++index) {
        const bool isLast = index + 1 == programmes.size();
        const qint64 start = programmes.at(index).start;
        if (!isLast && programmes.at(index + 1).start == start) {
            continue;
        }
        ScheduledProgramme programme = programmes.at(index);
        if (programme.stop <= start) {
            programme.stop = start + longestGuess;
        }
        if (!isLast) {
            programme.stop = std::min(programme.stop, programmes.at(index + 1).start);
        }
        programmes[kept++] = programme;
    }
    programmes.resize(kept);
}

} // namespace

std::optional<QList<ScheduledProgramme>> readSchedule(const QJsonDocument &reply,
                                                      const QTimeZone &serverZone)
{
    const QJsonValue listings = reply.object().value("epg_listings"_L1);
    if (!listings.isArray() && !listings.isObject()) {
        return std::nullopt;
    }
    QList<ScheduledProgramme> programmes;
    const auto take = [&](const QJsonValue &listing) {
        if (auto programme = readProgramme(listing.toObject(), serverZone)) {
            programmes << *programme;
        }
    };
    const QJsonArray array = listings.toArray();
    const QJsonObject object = listings.toObject();
    std::for_each(array.begin(), array.end(), take);
    std::for_each(object.begin(), object.end(), take);
    putInOrder(programmes);
    return programmes;
}
