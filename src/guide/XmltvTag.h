#pragma once

#include <QByteArrayView>

/// @file
/// The tags of a guide's document: what stands between "<" and ">".

namespace XmltvTag {

/// Whether the character can begin a name.
bool isNameStart(char character);

/// The front of a tag, up to a blank or a slash.
QByteArrayView nameOf(QByteArrayView tag);

/// The value of an attribute as it stands; empty without it. A quote may be missing.
QByteArrayView attributeOf(QByteArrayView tag, QByteArrayView wanted);

/// Whether the name is that of another child of a channel or a programme than those that are read:
/// its tag ends an open text. What is no child is taken for markup inside a text.
bool isOtherChild(QByteArrayView name);

} // namespace XmltvTag
