#pragma once

#include "providers/CatalogLoader.h"
#include "providers/SampleCatalogs.h"

#include <QList>
#include <QStringList>

/// A loader over an empty profile, and what it has reported.
class LoadRecorder
{
public:
    /// `subscriptionUrl` is the base address of the subscription service.
    explicit LoadRecorder(const QString &subscriptionUrl = {});

    void load(const SourceConfig &source, bool force = false) { loader.load(source, force); }

    /// The part of a catalog that is the categories of a section; part + 1 is its items. Those of
    /// an account come first, then those of a playlist.
    static int partOf(CatalogSection section) { return 2 * static_cast<int>(section); }
    /// The names reported last for the parts of an account.
    AccountCatalog shown() const { return parts.first(accountParts); }
    QStringList groups() const { return parts.at(accountParts); }
    QStringList channels() const { return parts.at(accountParts + 1); }

    bool isLoading() const { return owedSteps > 0; }
    /// The requests of the loader that are not answered yet.
    qsizetype requestsUnderWay() const;

    CatalogLoader loader;
    int owedSteps = 0;
    QStringList events; ///< the signals' names in the order of arrival
    QList<SourceConfig> resolved;
    QList<SourceConfig> stamped;
    QList<LoadFailure> failures;

private:
    QList<QStringList> parts{accountParts + 2};
};
