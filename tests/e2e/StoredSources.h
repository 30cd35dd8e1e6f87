#pragma once

#include "fakeprovider/XtreamProvider.h"

#include <QString>

/// @file
/// Sources in the test's profile, as an earlier run of the program would have stored them.

/// Stores the provider's account as "Home".
void storeAccount(const XtreamProvider &provider);
void storePlaylist(const QString &name, const QString &url);
