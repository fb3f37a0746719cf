#pragma once

#include <QString>

#include "platform/nrvcore/string.h"

/// Conversion of texts between the toolkit and Qt. In captions of both, '&' precedes the mnemonic
/// and "&&" is an ampersand.

namespace qtui {

QString ToQString(const nrvcore::UTF16String& text);
QString ToQString(const nrvcore::String& utf8);
nrvcore::UTF16String FromQString(const QString& text);

/// The caption without the '&' of its mnemonic; ampersands remain doubled.
QString WithoutMnemonic(const QString& caption);
/// Converts plain text to a caption: doubles its ampersands.
QString AsCaption(const QString& text);
/// The caption for a screen reader: without mnemonic and trailing colon.
QString SpokenName(const QString& caption);

}  // namespace qtui
