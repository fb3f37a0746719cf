#include "studio/text_writer.h"

#include <QFileDevice>
#include <charconv>
#include <cmath>

#include "studio/studio_error.h"

namespace {

constexpr char kHexDigits[] = "0123456789abcdef";

constexpr int kDecimals = 4;
constexpr double kUnit = 10000;

}  // namespace

TextWriter::TextWriter(QIODevice& device) : device(device) {
  buffer.reserve(2 * kPieceSize);
}

void TextWriter::Flush() {
  WriteAll(device, buffer);
  buffer.clear();
}

void ThrowWriteError(const QIODevice& device) {
  const auto* file = qobject_cast<const QFileDevice*>(&device);
  throw StudioError("$$$/Studio/Write/Failed=cannot write %1: %2",
                    file ? file->fileName() : Text("$$$/Studio/Write/TheMosaic=the mosaic"),
                    ReasonText(device));
}

void WriteAll(QIODevice& device, std::string_view bytes) {
  if (device.write(bytes.data(), qint64(bytes.size())) == qint64(bytes.size())) return;
  ThrowWriteError(device);
}

std::string NumberText(double value) {
  char digits[32];
  const int64_t units = std::llround(std::fabs(value) * kUnit);
  const char* end = std::to_chars(digits, digits + sizeof digits, units).ptr;
  std::string text(digits, size_t(end - digits));
  if (text.size() <= kDecimals) text.insert(0, kDecimals + 1 - text.size(), '0');
  text.insert(text.size() - kDecimals, 1, '.');
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  if (value < 0 && units != 0) text.insert(0, 1, '-');
  return text;
}

QString NumberForUser(double value) {
  const QChar sign(nrvcore::config::Localizer::Get().GetDecimalSign());
  return QString::fromStdString(NumberText(value)).replace('.', sign);
}

ColorText::ColorText(QRgb color) {
  text[0] = '#';
  int at = 1;
  for (int channel : {qRed(color), qGreen(color), qBlue(color)}) {
    text[at++] = kHexDigits[channel >> 4];
    text[at++] = kHexDigits[channel & 15];
  }
}
