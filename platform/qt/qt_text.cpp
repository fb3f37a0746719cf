#include "platform/qt/qt_text.h"

namespace qtui {

QString ToQString(const nrvcore::UTF16String& text) {
  const std::u16string_view view = text.View();
  return QString::fromUtf16(view.data(), static_cast<qsizetype>(view.size()));
}

QString ToQString(const nrvcore::String& utf8) {
  const std::string_view view = utf8.View();
  return QString::fromUtf8(view.data(), static_cast<qsizetype>(view.size()));
}

nrvcore::UTF16String FromQString(const QString& text) {
  return nrvcore::UTF16String(std::u16string_view(reinterpret_cast<const char16_t*>(text.utf16()),
                                                  static_cast<std::size_t>(text.size())));
}

QString WithoutMnemonic(const QString& caption) {
  QString plain;
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] != u'&') {
      plain += caption[i];
    } else if (i + 1 < caption.size() && caption[i + 1] == u'&') {
      plain += QStringLiteral("&&");
      ++i;
    }
  }
  return plain;
}

QString AsCaption(const QString& text) {
  return QString(text).replace(QStringLiteral("&"), QStringLiteral("&&"));
}

QString SpokenName(const QString& caption) {
  // In Japanese captions the mnemonic is a Latin letter in parentheses after the text.
  QString plain = caption;
  const qsizetype mark = plain.indexOf(QStringLiteral("(&"));
  if (mark >= 0 && plain.mid(mark + 3, 1) == QStringLiteral(")")) plain.remove(mark, 4);
  plain = WithoutMnemonic(plain).replace(QStringLiteral("&&"), QStringLiteral("&")).trimmed();
  while (plain.endsWith(u':') || plain.endsWith(u'\uFF1A')) plain.chop(1);
  return plain.trimmed();
}

}  // namespace qtui
