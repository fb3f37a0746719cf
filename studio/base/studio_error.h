#pragma once

#include <QString>
#include <stdexcept>

#include "studio/base/file_name.h"
#include "studio/base/text.h"

/// An error whose cause lies outside the program, such as a file or the command line. what() is one
/// line of UTF-8 in the user's language, without a full stop, as it follows the program's name and
/// a colon.
class StudioError : public std::runtime_error {
 public:
  /// A key, with `values` in place of %1 to %4.
  template <typename... Values>
  explicit StudioError(const char* key, const Values&... values)
      : StudioError(Text(key, values...)) {}

  explicit StudioError(const QString& message)
      : std::runtime_error(OnOneLine(message).toStdString()) {}
};

inline constexpr const char* kNoMemory =
    "$$$/Studio/Reason/Memory=there is not enough memory for this";

/// The reason of an error in the user's language: of an exception, or of an errno, where the text
/// is the system's if there is no translation.
QString ReasonText(const std::exception& error);
QString ReasonText(int systemError);

/// A reason as a sentence, with a capital letter and a full stop.
QString Sentence(QString reason);
