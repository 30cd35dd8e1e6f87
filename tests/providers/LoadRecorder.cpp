#include "providers/LoadRecorder.h"

#include "support/PrivateProfile.h"

#include <QNetworkReply>

using namespace Qt::StringLiterals;

LoadRecorder::LoadRecorder(const QString &subscriptionUrl)
    : loader(subscriptionUrl, nullptr)
{
    PrivateProfile::current().clear();
    QObject::connect(&loader, &CatalogLoader::resolved, &loader,
                     [this](const SourceConfig &source) {
                         events << u"resolved"_s;
                         resolved << source;
                     });
    QObject::connect(&loader, &CatalogLoader::stamped, &loader, [this](const SourceConfig &source) {
        events << u"stamped"_s;
        stamped << source;
    });
    QObject::connect(&loader, &CatalogLoader::stepsBegun, &loader, [this](int steps) {
        events << u"steps %1"_s.arg(steps);
        owedSteps += steps;
    });
    QObject::connect(&loader, &CatalogLoader::stepDone, &loader, [this] {
        events << u"done"_s;
        --owedSteps;
    });
    QObject::connect(&loader, &CatalogLoader::categoriesLoaded, &loader,
                     [this](CatalogSection section, const QList<Category> &categories) {
                         events << u"categories"_s;
                         parts[partOf(section)] = namesOf(categories);
                     });
    QObject::connect(&loader, &CatalogLoader::itemsLoaded, &loader,
                     [this](CatalogSection section, const ItemIndex &items) {
                         events << u"items"_s;
                         parts[partOf(section) + 1] = namesOf(items.items());
                     });
    QObject::connect(&loader, &CatalogLoader::failed, &loader, [this](const LoadFailure &failure) {
        events << u"failed"_s;
        failures << failure;
    });
}

qsizetype LoadRecorder::requestsUnderWay() const
{
    const auto replies = loader.findChildren<QNetworkReply *>();
    return std::count_if(replies.begin(), replies.end(),
                         [](const QNetworkReply *reply) { return !reply->isFinished(); });
}
