#include "guide/XmltvTime.h"

#include <array>
#include <chrono>
#include <utility>

namespace {

constexpr int secondsPerMinute = 60;
constexpr int secondsPerHour = 3600;
constexpr qint64 secondsPerDay = 86400;

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool isLetter(char character)
{
    const char lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'z';
}

/// Takes a number of so many digits from the front.
std::optional<int> takeNumber(QByteArrayView &text, int digits)
{
    if (text.size() < digits) {
        return {};
    }
    int number = 0;
    for (const char character : text.first(digits)) {
        if (!isDigit(character)) {
            return {};
        }
        number = number * 10 + (character - '0');
    }
    text = text.sliced(digits);
    return number;
}

/// Reads "HH", "H", "HHMM" or "HH:MM" as seconds.
std::optional<int> readOffset(QByteArrayView text)
{
    std::optional<int> hours = takeNumber(text, 2);
    if (!hours) {
        hours = takeNumber(text, 1);
    }
    if (!text.isEmpty() && text.front() == ':') {
        text = text.sliced(1);
    }
    const int minutes = takeNumber(text, 2).value_or(0);
    if (!hours || *hours > 23 || minutes > 59 || !text.isEmpty()) {
        return {};
    }
    return *hours * secondsPerHour + minutes * secondsPerMinute;
}

bool isUtcName(QByteArrayView name)
{
    for (const char *utc : {"Z", "UTC", "GMT"}) {
        if (name.compare(utc, Qt::CaseInsensitive) == 0) {
            return true;
        }
    }
    return false;
}

} // namespace

std::optional<XmltvTime> readXmltvTime(QByteArrayView text)
{
    text = text.trimmed();
    const std::optional<int> year = takeNumber(text, 4);
    if (!year) {
        return {};
    }
    std::array parts{1, 1, 0, 0, 0};
    for (int &part : parts) {
        const std::optional<int> number = takeNumber(text, 2);
        if (!number) {
            break;
        }
        part = *number;
    }
    const auto [month, day, hour, minute, second] = parts;
    const std::chrono::year_month_day date{std::chrono::year(*year),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    // A day may end at 24:00, a minute with a leap second.
    if (!date.ok() || hour > 24 || minute > 59 || second > 60) {
        return {};
    }
    XmltvTime time;
    const int secondOfDay = hour * secondsPerHour + minute * secondsPerMinute + second;
    time.seconds =
        std::chrono::sys_days(date).time_since_epoch().count() * secondsPerDay + secondOfDay;

    const QByteArrayView zone = text.trimmed();
    if (zone.isEmpty()) {
        return time;
    }
    if (zone.front() == '+' || zone.front() == '-') {
        const std::optional<int> offset = readOffset(zone.sliced(1));
        if (!offset) {
            return {};
        }
        // The sign comes from the text: "-0030" has no hours.
        time.seconds += zone.front() == '-' ? *offset : -*offset;
        return time;
    }
    if (!isLetter(zone.front())) {
        return {};
    }
    time.zoneUnknown = !isUtcName(zone);
    return time;
}
