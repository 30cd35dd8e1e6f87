// Linked into the program that tst_Subscription runs, in place of the file that the build
// configures: the address of the subscription service comes from the environment.

#include "providers/SubscriptionAddress.h"

QString configuredSubscriptionUrl()
{
    return qEnvironmentVariable("VANTIRO_TEST_SUBSCRIPTION_URL");
}
