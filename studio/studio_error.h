#pragma once

#include <QString>
#include <stdexcept>

/// Something that the user can understand and put right. what() is one line of UTF-8 without a
/// full stop, ready to stand behind the program's name.
class StudioError : public std::runtime_error {
 public:
  explicit StudioError(const QString& message) : std::runtime_error(message.toStdString()) {}
};
