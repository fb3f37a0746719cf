#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QRgb>
#include <QString>
#include <string>
#include <string_view>

/// Collects text for a file and writes it in large pieces. Throws StudioError when the device
/// refuses. The device must outlive it; nobody else may write to it meanwhile.
class TextWriter {
 public:
  explicit TextWriter(QIODevice& device);

  TextWriter& operator<<(std::string_view text) {
    buffer.append(text);
    if (buffer.size() >= kPieceSize) Flush();
    return *this;
  }

  /// Hands on what was collected; without a call the rest is lost.
  void Flush();

 private:
  static constexpr size_t kPieceSize = 1 << 16;

  QIODevice& device;
  std::string buffer;
};

/// Writes all of it. Throws StudioError when the device refuses.
void WriteAll(QIODevice& device, std::string_view bytes);

/// Throws the StudioError that says which file could not be written and why.
[[noreturn]] void ThrowWriteError(const QIODevice& device);

/// A number with at most four decimals and no more digits than it needs.
std::string NumberText(double value);

/// The same with the decimal sign of the user's language.
QString NumberForUser(double value);

/// "#rrggbb"; the opacity doesn't show.
class ColorText {
 public:
  explicit ColorText(QRgb color);
  operator std::string_view() const { return {text, sizeof text}; }

 private:
  char text[7];
};
