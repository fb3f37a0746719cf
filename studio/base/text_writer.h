#pragma once

#include <QIODevice>
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

/// Writes all of it. Throws the StudioError that says which file could not be written and why.
void WriteAll(QIODevice& device, std::string_view bytes);
