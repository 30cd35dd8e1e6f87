#include "ui/GuideResultText.h"

#include "app/TraceSecrets.h"
#include "guide/GuideResult.h"
#include "library/LibraryBackup.h"
#include "library/LibraryRecords.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <limits>

namespace {

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(GuideResult)

public:
    static QString accountGuide() { return tr("The account's own guide"); }
    static QStringList summary(const GuideResult &result);
    static QString ofAddress(const GuideAddressResult &result);
    static QString kept() { return tr("The guide of the last update stays."); }

private:
    static QString problem(const GuideAddressResult &result);
};

QString shownTime(qint64 secondsSinceEpoch)
{
    return QLocale().toString(QDateTime::fromSecsSinceEpoch(secondsSinceEpoch),
                              QLocale::ShortFormat);
}

QString shownNumber(qint64 number)
{
    return QLocale().toString(number);
}

QStringList Texts::summary(const GuideResult &result)
{
    if (result.cancelled) {
        return {tr("The update was cancelled. The guide of the last update stays.")};
    }
    QStringList lines{tr("Last update: %1").arg(shownTime(result.finishedAt)),
                      tr("Programmes: %1").arg(shownNumber(result.programmes)),
                      tr("Channels with a guide: %1 of %2")
                          .arg(shownNumber(result.matched), shownNumber(result.channels))};
    if (result.suggested > 0) {
        lines << tr("Of these, only suggested: %1. Confirm or change them with \"Guide "
                    "Channel...\" in a channel's menu.")
                     .arg(shownNumber(result.suggested));
    }
    if (result.newest > 0) {
        lines << tr("The last programme begins: %1").arg(shownTime(result.newest));
    }
    return lines;
}

QString Texts::problem(const GuideAddressResult &result)
{
    const QString name = guideAddressName(result.address);
    // The network layer repeats the address.
    const QString detail = traceSafe(result.detail);
    switch (result.problem) {
    case GuideProblem::None:
        break;
    case GuideProblem::NotReachable:
        return tr("%1 cannot be reached: %2").arg(name, detail);
    case GuideProblem::FileNotOpened:
        return tr("%1 cannot be opened: %2").arg(name, detail);
    case GuideProblem::NotAGuide:
        return tr("%1 is no guide. It may be a page or an error message.").arg(name);
    case GuideProblem::UnknownPacking:
        return tr("%1 is packed in a form other than gzip, which cannot be read.").arg(name);
    case GuideProblem::Damaged:
        return tr("%1 is damaged and cannot be unpacked.").arg(name);
    case GuideProblem::CutShort:
        return tr("%1 ends early. It was not taken.").arg(name);
    case GuideProblem::TooLarge:
        return tr("%1 is too large.").arg(name);
    case GuideProblem::NothingMatches:
        return tr("%1 has no programmes of the channels of this source.").arg(name);
    case GuideProblem::NotStored:
        return tr("%1 cannot be stored: %2").arg(name, detail);
    case GuideProblem::ChannelsNotLoaded:
        return tr("What the source tells of its channels cannot be read: %1").arg(detail);
    }
    return {};
}

QString Texts::ofAddress(const GuideAddressResult &result)
{
    if (result.problem != GuideProblem::None) {
        return problem(result);
    }
    const QString name = guideAddressName(result.address);
    const int count =
        static_cast<int>(std::min<qint64>(result.programmes, std::numeric_limits<int>::max()));
    return result.tookUnknownZones
               ? tr("%1: %Ln programmes. The time zone of some is not known; they may be shown at "
                    "the wrong hour.",
                    nullptr, count)
                     .arg(name)
               : tr("%1: %Ln programmes.", nullptr, count).arg(name);
}

} // namespace

QString guideAddressName(const QString &address)
{
    return address == accountGuideAddress ? Texts::accountGuide()
                                          : LibraryBackup::withoutCredentials(address);
}

QString guideResultText(const GuideResult &result)
{
    if (result.finishedAt == 0 && !result.cancelled) {
        return {};
    }
    QStringList lines = Texts::summary(result);
    if (result.cancelled) {
        return lines.join(u'\n');
    }
    for (const GuideAddressResult &address : result.addresses) {
        lines << Texts::ofAddress(address);
    }
    const bool allFailed =
        std::all_of(result.addresses.cbegin(), result.addresses.cend(),
                    [](const auto &address) { return address.problem != GuideProblem::None; });
    if (allFailed && !result.addresses.isEmpty()) {
        lines << Texts::kept();
    }
    return lines.join(u'\n');
}
