#pragma once

#include <QString>

/// The base address of the subscription service, without the path. Set when the build is
/// configured (VANTIRO_SUBSCRIPTION_BASE_URL); nothing changes it at run time.
QString configuredSubscriptionUrl();
