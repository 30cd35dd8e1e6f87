#include "soak/ProcessUsage.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QRegularExpression>

#include <algorithm>
#include <cstdlib>
#include <memory>

#include <xcb/res.h>

using namespace Qt::StringLiterals;

namespace {

/// The fewest samples whose median means something.
constexpr qsizetype fewestSamples = 6;

struct Free
{
    void operator()(void *reply) const { std::free(reply); }
};
template <typename Reply>
std::unique_ptr<Reply, Free> owned(Reply *reply)
{
    return std::unique_ptr<Reply, Free>(reply);
}

/// The number behind a name in a file of /proc.
std::optional<qint64> procValue(const QString &path, const QString &name)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QRegularExpression line(u"^%1:\\s+(\\d+)"_s.arg(name),
                                  QRegularExpression::MultilineOption);
    const QRegularExpressionMatch match = line.match(QString::fromUtf8(file.readAll()));
    return match.hasMatch() ? std::optional(match.captured(1).toLongLong()) : std::nullopt;
}

/// The identifiers of the connections that a process has to the display: Qt's, and one for each
/// picture of libVLC.
QList<std::uint32_t> displayClients(xcb_connection_t *display, qint64 processId)
{
    const xcb_res_client_id_spec_t everyone{0, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const auto reply = owned(xcb_res_query_client_ids_reply(
        display, xcb_res_query_client_ids(display, 1, &everyone), nullptr));
    QList<std::uint32_t> clients;
    if (!reply)
        return clients;
    for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem > 0;
         xcb_res_client_id_value_next(&ids)) {
        if (xcb_res_client_id_value_value_length(ids.data) == 1 &&
            *xcb_res_client_id_value_value(ids.data) == static_cast<std::uint32_t>(processId))
            clients.append(ids.data->spec.client);
    }
    return clients;
}

qint64 displayResources(qint64 processId)
{
    xcb_connection_t *display =
        qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    // The server answers the second version's requests only to those who have asked for it.
    owned(xcb_res_query_version_reply(display, xcb_res_query_version(display, 1, 2), nullptr));
    qint64 count = 0;
    for (const std::uint32_t client : displayClients(display, processId)) {
        const auto reply = owned(xcb_res_query_client_resources_reply(
            display, xcb_res_query_client_resources(display, client), nullptr));
        if (!reply)
            continue;
        const xcb_res_type_t *types = xcb_res_query_client_resources_types(reply.get());
        for (int type = 0; type < xcb_res_query_client_resources_types_length(reply.get()); ++type)
            count += types[type].count;
    }
    return count;
}

qint64 median(QList<qint64> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

} // namespace

std::optional<ProcessUsage> ProcessUsage::of(qint64 processId)
{
    const QString process = u"/proc/%1"_s.arg(processId);
    const QString status = process + "/status"_L1;
    const auto written = procValue(status, u"RssAnon"_s);
    const auto shared = procValue(status, u"RssShmem"_s);
    const auto mapped = procValue(status, u"RssFile"_s);
    const auto threads = procValue(status, u"Threads"_s);
    if (!written || !shared || !mapped || !threads)
        return {};
    ProcessUsage usage;
    usage.memoryKb = *written + *shared;
    usage.mappedFilesKb = *mapped;
    usage.threads = *threads;
    // Every handle is a link to what is open, which often is no file.
    usage.fileHandles = QDir(process + "/fd"_L1)
                            .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                            .size();
    usage.displayResources = ::displayResources(processId);
    return usage;
}

QString ProcessUsage::text() const
{
    return u"memory %1 MB, mapped files %2 MB, file handles %3, threads %4, display resources %5"_s
        .arg(static_cast<double>(memoryKb) / 1024, 0, 'f', 1)
        .arg(static_cast<double>(mappedFilesKb) / 1024, 0, 'f', 1)
        .arg(fileHandles)
        .arg(threads)
        .arg(displayResources);
}

bool UsageGrowth::isWithin(double share) const
{
    return static_cast<double>(late) <= static_cast<double>(early) * (1 + share);
}

QString UsageGrowth::text() const
{
    return u"%1: %2 after the first tenth, %3 at the end (%4 %)"_s.arg(what)
        .arg(early)
        .arg(late)
        .arg(100.0 * static_cast<double>(late - early) / static_cast<double>(std::max(early, 1LL)),
             0, 'f', 1);
}

QList<UsageGrowth> usageGrowth(const QList<ProcessUsage> &samples)
{
    const qsizetype tenth = samples.size() / 10;
    const qsizetype window = samples.size() / 5;
    if (window < fewestSamples)
        return {};
    const auto growth = [&](const QString &what, qint64 ProcessUsage::*value) {
        QList<qint64> early;
        QList<qint64> late;
        for (qsizetype index = 0; index < window; ++index) {
            early.append(samples.at(tenth + index).*value);
            late.append(samples.at(samples.size() - window + index).*value);
        }
        return UsageGrowth{what, median(early), median(late)};
    };
    return {growth(u"memory in kB"_s, &ProcessUsage::memoryKb),
            growth(u"mapped files in kB"_s, &ProcessUsage::mappedFilesKb),
            growth(u"file handles"_s, &ProcessUsage::fileHandles),
            growth(u"threads"_s, &ProcessUsage::threads),
            growth(u"display resources"_s, &ProcessUsage::displayResources)};
}
