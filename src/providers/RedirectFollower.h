#pragma once

#include <QMetaObject>
#include <QObject>

class QNetworkReply;

/// Allows every redirect of a reply whose request leaves that to the user
/// (QNetworkRequest::UserVerifiedRedirectPolicy), each hop exactly once. A child of the reply.
///
/// Qt follows a redirect when its own slot hears QNetworkReply::redirectAllowed(). Some versions
/// connect that slot again for every hop, which would follow the second one twice; others may
/// connect it once.
class RedirectFollower final : public QObject
{
    Q_OBJECT

public:
    explicit RedirectFollower(QNetworkReply *networkReply);

private:
    void allow();
    /// How often something but this object is connected to redirectAllowed().
    int foreignConnections() const;
    void dropConnections();

    QNetworkReply *reply;
    QMetaObject::Connection behindFirst;
    bool isDuplicated = false;
};
