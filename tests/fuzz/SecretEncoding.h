#pragma once

#include <QByteArray>
#include <QString>

class FuzzInput;

/// @file
/// The encodings of a secret that a trace must not show, written apart from the code that finds
/// them.

/// The secret in UTF-8, each character in an encoding that the input chooses: as it is,
/// percent-encoded once or repeatedly, as a JSON escape (also inside further JSON texts), or as a
/// character reference.
QByteArray encodeSecret(const QString &secret, FuzzInput &input);

/// Whether a text holds the secret: literally, in those encodings, or in Base64.
bool showsSecret(const QByteArray &text, const QString &secret);
