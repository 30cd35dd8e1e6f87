#pragma once

#include "fakeprovider/XtreamProvider.h"
#include "model/SourceManager.h"

/// Stores the provider's account as "Home" in the test's profile, as an earlier run of the program
/// would have stored it.
inline void storeAccount(const XtreamProvider &provider)
{
    SourceConfig account;
    account.type = SourceType::Xtream;
    account.name = QStringLiteral("Home");
    account.url = provider.url();
    account.username = provider.user();
    account.password = provider.password();
    account.liveExtension = QStringLiteral("ts");
    SourceManager(nullptr).saveSource(account);
}
