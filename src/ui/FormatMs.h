#pragma once

#include <QString>

/// A position or length in milliseconds as "mm:ss", from one hour on as "h:mm:ss". Negative values
/// count as 0.
QString formatMs(qint64 ms);
