#pragma once

#include <QString>

#include "platform/nrvcore/string.h"

/// Texts on their way between the toolkit and Qt. In captions of both, '&' stands before the
/// mnemonic and "&&" for itself.

namespace qtui {

QString ToQString(const nrvcore::UTF16String& text);
QString ToQString(const nrvcore::String& utf8);
nrvcore::UTF16String FromQString(const QString& text);

/// The caption without the mark before its mnemonic; still a caption.
QString WithoutMnemonic(const QString& caption);
/// A text that is no caption, for a widget that takes one.
QString AsCaption(const QString& text);
/// The caption as a screen reader should say it: no mnemonic, no colon at its end.
QString SpokenName(const QString& caption);

}  // namespace qtui
