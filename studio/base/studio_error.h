#pragma once

#include <QString>
#include <stdexcept>

#include "studio/base/file_name.h"
#include "studio/base/text.h"

/// A failure whose cause lies outside the program, such as a file or the command line. what() is
/// one line of UTF-8 in the user's language without a full stop, ready to stand behind the
/// program's name.
class StudioError : public std::runtime_error {
 public:
  /// A key, and values in the places of its %1 to %4.
  template <typename... Values>
  explicit StudioError(const char* key, const Values&... values)
      : StudioError(Text(key, values...)) {}

  explicit StudioError(const QString& message)
      : std::runtime_error(OnOneLine(message).toStdString()) {}
};

inline constexpr const char* kNoMemory =
    "$$$/Studio/Reason/Memory=there is not enough memory for this";

/// What went wrong, in the user's language; the system's text for an errno without one of ours.
QString ReasonText(const std::exception& error);
QString ReasonText(int systemError);

/// A reason, which is made to stand behind a colon, as a sentence of its own.
QString Sentence(QString reason);
