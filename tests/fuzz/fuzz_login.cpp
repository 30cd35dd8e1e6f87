// The reply to a login.

#include "FuzzTarget.h"

#include "providers/AccountInformation.h"
#include "providers/XtreamClient.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

void fuzz(FuzzInput &input)
{
    const QJsonDocument reply = QJsonDocument::fromJson(input.rest());
    if (XtreamClient::acceptsLogin(reply)) {
        require(reply["user_info"_L1]["auth"_L1].toDouble() == 1, "only auth 1 is a login");
        require(readAccountInformation(reply).has_value(), "who may log in has a summary");
    }
    const auto information = readAccountInformation(reply);
    if (information && information->expiresAt) {
        require(*information->expiresAt > 0, "an expiry is a time");
    }
}
