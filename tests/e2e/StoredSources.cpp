#include "e2e/StoredSources.h"

#include "model/SourceManager.h"

using namespace Qt::StringLiterals;

void storeAccount(const XtreamProvider &provider)
{
    SourceConfig account;
    account.type = SourceType::Xtream;
    account.name = u"Home"_s;
    account.url = provider.url();
    account.username = provider.user();
    account.password = provider.password();
    account.liveExtension = u"ts"_s;
    SourceManager(nullptr).saveSource(account);
}

void storePlaylist(const QString &name, const QString &url)
{
    SourceConfig playlist;
    playlist.name = name;
    playlist.url = url;
    SourceManager(nullptr).saveSource(playlist);
}
