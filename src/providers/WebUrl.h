#pragma once

#include <QUrl>

/// Whether a server may be asked at that address: only over HTTP and HTTPS. Qt's network classes
/// would also read local files, resources of the program and data from it, and providers choose
/// many addresses.
inline bool isWebUrl(const QUrl &url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}
