// The subscription service's reply: whole credentials, or a message for the user.

#include "FuzzTarget.h"

#include "providers/ZevrinoClient.h"

void fuzz(FuzzInput &input)
{
    const ZevrinoClient::Outcome outcome = ZevrinoClient::readReply(input.rest());
    const ZevrinoClient::Credentials &account = outcome.credentials;
    if (outcome.ok) {
        require(!account.serverUrl.isEmpty() && !account.username.isEmpty() &&
                    !account.password.isEmpty(),
                "a success has an account");
        require(outcome.message.isEmpty(), "a success has no message");
    } else {
        require(account == ZevrinoClient::Credentials(), "a refusal has no account");
        require(!outcome.message.isEmpty(), "a refusal has a message");
    }
}
