#pragma once

#include <exception>

#include "platform/nrvcore/replacement_value.h"
#include "platform/nrvcore/string.h"

namespace nrvcore::config {

enum class ErrorLevel : int { kNotice = 0, kError = 1 };

/// What ThrowError throws. `Number`, `Code` and `Flag` are diagnostics that nobody interprets.
class NRV_EXPORT Error : public std::exception {
 public:
  Error(ErrorLevel errorLevel, const char* errorKey, unsigned errorNumber, int errorCode,
        bool errorFlag, const UTF16String& errorText);
  Error(const Error& other);
  ~Error() override;
  Error& operator=(const Error&) = delete;

  /// The localisation key.
  const char* what() const noexcept override;
  const char* Key() const noexcept;
  /// The localised text, with its replacements, as it was when the error was thrown.
  const UTF16String& Text() const noexcept;

  ErrorLevel Level() const noexcept;
  unsigned Number() const noexcept;
  int Code() const noexcept;
  bool Flag() const noexcept;

 private:
  ErrorLevel level;
  String key;
  unsigned number;
  int code;
  bool flag;
  UTF16String text;
};

/// Throws an Error; the values take the places of %1 to %4 in the localised key.
[[noreturn]] NRV_EXPORT void ThrowError(ErrorLevel level, const char* key, unsigned number,
                                        int code, bool flag, const ReplacementValue& first,
                                        const ReplacementValue& second,
                                        const ReplacementValue& third,
                                        const ReplacementValue& fourth);

inline constexpr const char* kInvalidTypeConversion =
    "$$$/nrvcore/utility/Error/InvalidTypeConversion=Invalid type conversion.";

/// What every checked conversion throws when the object is of another class.
[[noreturn]] NRV_EXPORT void ThrowInvalidTypeConversion();

}  // namespace nrvcore::config
