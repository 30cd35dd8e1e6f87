// A backup that someone else made: what is read is written the same, and restoring it is a change
// that the library can do.

#include "FuzzTarget.h"

#include "library/LibraryBackup.h"
#include "library/LibraryTables.h"
#include "library/RestorePlan.h"

#include <QSet>

#include <set>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

LibraryBackup::Content again(const LibraryBackup::Content &content, bool withCredentials)
{
    QString error;
    const auto read = LibraryBackup::read(LibraryBackup::write(content, withCredentials), error);
    require(read.has_value(), "what was written can be read");
    return *read;
}

void checkWithoutCredentials(const LibraryBackup::Content &content)
{
    require(!content.hasCredentials, "a backup tells that it lacks credentials");
    for (const SourceConfig &source : content.sources) {
        require(source.password.isEmpty() && source.subscriptionKey.isEmpty(),
                "no password and no key stays");
    }
}

template <typename Row>
void requireSingleKeys(const QList<Row> &rows)
{
    std::set<std::tuple<QString, qint32, QString>> keys;
    for (const Row &row : rows) {
        keys.insert({row.source, qint32(row.kind), row.id});
    }
    require(qsizetype(keys.size()) == rows.size(), "no key stands twice in a change");
}

void checkPlan(const LibraryBackup::Content &current, const LibraryBackup::Content &backup,
               RestoreMode mode)
{
    const RestorePlan plan = planRestore(current, backup, mode);
    for (const LibraryRows &rows : {plan.change.put, plan.change.removed}) {
        LibraryTables::forEach([&rows](const auto &table) { requireSingleKeys(rows.*table.rows); });
    }
    QSet<QString> names;
    for (const SourceConfig &source : plan.sources) {
        names.insert(source.name);
    }
    require(names.size() == plan.sources.size(), "no name of a source stands twice");
}

} // namespace

void fuzz(FuzzInput &input)
{
    QString error;
    const auto content = LibraryBackup::read(input.rest(), error);
    require(content.has_value() == error.isEmpty(), "a backup is read, or an error tells why not");
    if (!content) {
        return;
    }
    const LibraryBackup::Content copy = again(*content, true);
    require(copy.sources == content->sources && copy.rows == content->rows &&
                copy.hasCredentials == content->hasCredentials,
            "a backup is written as it was read");
    checkWithoutCredentials(again(*content, false));
    checkPlan({}, *content, RestoreMode::Replace);
    checkPlan({}, *content, RestoreMode::Merge);
}
