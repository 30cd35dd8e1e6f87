#pragma once

#include <QString>

struct GuideResult;

/// The name of a guide's address for the user, without credentials.
QString guideAddressName(const QString &address);

/// What came of an update, in sentences, one per line.
QString guideResultText(const GuideResult &result);
