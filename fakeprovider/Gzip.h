#pragma once

#include <QByteArray>

/// The data as one member of gzip.
QByteArray packedWithGzip(const QByteArray &data);
