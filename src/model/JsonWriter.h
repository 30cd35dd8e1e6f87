#pragma once

#include <QByteArray>
#include <QStringView>

/// Appends `text` to `json` in quotes and with the escapes that it needs.
void appendJsonText(QByteArray &json, QStringView text);

/// Appends a number as QJsonDocument writes it: shortest form, "null" when it is not finite.
void appendJsonNumber(QByteArray &json, double number);
