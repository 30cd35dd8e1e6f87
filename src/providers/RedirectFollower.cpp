#include "providers/RedirectFollower.h"

#include <QNetworkReply>

namespace {

/// Makes the protected member function reachable.
struct Receivers : QObject
{
    using QObject::receivers;
};

} // namespace

RedirectFollower::RedirectFollower(QNetworkReply *networkReply)
    : QObject(networkReply)
    , reply(networkReply)
{
    connect(reply, &QNetworkReply::redirected, this, &RedirectFollower::allow);
}

void RedirectFollower::allow()
{
    isDuplicated = foreignConnections() > 1;
    if (!isDuplicated) {
        // Slots are called in the order of their connection: this one behind Qt's, and before the
        // one that Qt may add for the next hop.
        disconnect(behindFirst);
        behindFirst = connect(reply, &QNetworkReply::redirectAllowed, this,
                              &RedirectFollower::dropConnections);
    }
    Q_EMIT reply->redirectAllowed();
}

int RedirectFollower::foreignConnections() const
{
    const int all = (reply->*(&Receivers::receivers))(SIGNAL(redirectAllowed()));
    return behindFirst ? all - 1 : all;
}

void RedirectFollower::dropConnections()
{
    if (isDuplicated) {
        // The hop is allowed. What is connected still would allow it again; Qt connects it again.
        disconnect(reply, &QNetworkReply::redirectAllowed, nullptr, nullptr);
        behindFirst = {};
    }
}
