#pragma once

#include <QString>

/// What the requests and the stream URLs of an Xtream account are made of.
struct XtreamAccount
{
    QString server; ///< without a trailing slash
    QString username;
    QString password;
    QString userAgent{}; ///< that the user chose for the source; usually empty
};
