#include "studio/base/file_name.h"

#include <boost/locale/utf.hpp>

namespace {

constexpr char16_t kByteBase = 0xDC00;

bool IsByte(QChar unit) {
  return unit.unicode() >= kByteBase + 0x80 && unit.unicode() <= kByteBase + 0xFF;
}

/// Whether the unit is a lone surrogate that stands for a byte, not half of a surrogate pair.
bool IsLoneByte(const QString& text, qsizetype at) {
  return IsByte(text[at]) && (at == 0 || !text[at - 1].isHighSurrogate());
}

}  // namespace

QString FileName(const QByteArray& bytes) {
  using Utf8 = boost::locale::utf::utf_traits<char>;
  QString name;
  for (const char *at = bytes.begin(), *next = at; at != bytes.end(); at = next) {
    const char32_t character = Utf8::decode(next, bytes.end());
    if (boost::locale::utf::is_valid_codepoint(character)) {
      name += QString::fromUcs4(&character, 1);
    } else {
      name += QChar(char16_t(kByteBase + uchar(*at)));
      next = at + 1;
    }
  }
  return name;
}

std::filesystem::path SystemPath(const QString& name) {
  std::string path;
  qsizetype start = 0;
  for (qsizetype at = 0; at < name.size(); ++at) {
    if (!IsLoneByte(name, at)) continue;
    path += name.mid(start, at - start).toStdString() + char(name[at].unicode() - kByteBase);
    start = at + 1;
  }
  return path + name.mid(start).toStdString();
}

QString OnOneLine(const QString& text) {
  QString line;
  for (qsizetype at = 0; at < text.size(); ++at) {
    const QChar unit = text[at];
    const bool isBreak = unit == QChar::LineSeparator || unit == QChar::ParagraphSeparator;
    if (unit == '\n') {
      line += "\\n";
    } else if (unit == '\t') {
      line += "\\t";
    } else if (unit.category() == QChar::Other_Control || isBreak) {
      line += "\\x" + QString::number(unit.unicode(), 16).toUpper().rightJustified(2, '0');
    } else if (IsLoneByte(text, at)) {
      line += "\\x" + QString::number(unit.unicode() - kByteBase, 16).toUpper();
    } else {
      line += unit;
    }
  }
  return line;
}
