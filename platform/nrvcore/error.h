#pragma once

#include <exception>

#include "platform/nrvcore/localizer.h"
#include "platform/nrvcore/string.h"

namespace nrvcore::config {

enum class ErrorLevel : int { kNotice = 0, kError = 1 };

/// What ThrowError throws.
class NRV_EXPORT Error : public std::exception {
 public:
  Error(const char* errorKey, const UTF16String& errorText);
  Error(const Error& other);
  ~Error() override;
  Error& operator=(const Error&) = delete;

  /// The localisation key.
  const char* what() const noexcept override;
  /// The localised text, with its replacements, as it was when the error was thrown.
  const UTF16String& Text() const noexcept { return text; }

 private:
  String key;
  UTF16String text;
};

/// Throws an Error; the values take the places of %1 to %4 in the localised key. The level, the
/// two numbers and the flag are part of the interface but not of the Error: no handler tells errors
/// apart by them.
[[noreturn]] NRV_EXPORT void ThrowError(ErrorLevel level, const char* key, unsigned number,
                                        int code, bool flag, const ReplacementValue& first,
                                        const ReplacementValue& second,
                                        const ReplacementValue& third,
                                        const ReplacementValue& fourth);

/// The same for whoever has no use for the rest.
[[noreturn]] inline void ThrowError(const char* key, const ReplacementValue& value = {}) {
  ThrowError(ErrorLevel::kError, key, 0, 0, false, value, {}, {}, {});
}

inline constexpr const char* kInvalidTypeConversion =
    "$$$/nrvcore/utility/Error/InvalidTypeConversion=Invalid type conversion.";

/// What every checked conversion throws when the object is of another class.
[[noreturn]] NRV_EXPORT void ThrowInvalidTypeConversion();

}  // namespace nrvcore::config
