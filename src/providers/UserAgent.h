#pragma once

#include "model/StreamHeaders.h"

#include <QNetworkRequest>
#include <QString>

/// Names the program that asks. Nothing is set for an empty text, or one that must not be sent:
/// Qt's own name is sent then.
inline void setUserAgent(QNetworkRequest &request, const QString &userAgent)
{
    if (isHeaderValue(userAgent)) {
        request.setHeader(QNetworkRequest::UserAgentHeader, userAgent);
    }
}
