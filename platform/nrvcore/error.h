#pragma once

#include <exception>

#include "platform/nrvcore/localizer.h"
#include "platform/nrvcore/string.h"

namespace nrvcore::config {

enum class ErrorLevel : int { kNotice = 0, kError = 1 };

/// The toolkit's exception: the arguments of ThrowError and the localised text.
class NRV_EXPORT Error : public std::exception {
 public:
  Error(ErrorLevel errorLevel, const char* errorKey, unsigned errorNumber, int errorCode,
        bool errorFlag, const UTF16String& errorText);
  Error(const Error& other);
  ~Error() override;
  Error& operator=(const Error&) = delete;

  /// The localisation key.
  const char* what() const noexcept override;
  /// The localised text with its placeholders replaced, in the language of the time of the throw.
  const UTF16String& Text() const noexcept { return text; }
  ErrorLevel Level() const noexcept { return level; }
  unsigned Number() const noexcept { return number; }
  int Code() const noexcept { return code; }
  bool Flag() const noexcept { return flag; }

 private:
  ErrorLevel level;
  String key;
  unsigned number;
  int code;
  bool flag;
  UTF16String text;
};

/// Throws an Error. The values replace the placeholders %1 to %4 in the localised key. Level,
/// number, code and flag are stored only.
[[noreturn]] NRV_EXPORT void ThrowError(ErrorLevel level, const char* key, unsigned number,
                                        int code, bool flag, const ReplacementValue& first,
                                        const ReplacementValue& second,
                                        const ReplacementValue& third,
                                        const ReplacementValue& fourth);

/// Throws an Error of level kError without number, code and flag.
[[noreturn]] inline void ThrowError(const char* key, const ReplacementValue& value = {}) {
  ThrowError(ErrorLevel::kError, key, 0, 0, false, value, {}, {}, {});
}

/// Throws the error of a checked conversion for an object of another class. Inline, because a
/// host's toolkit offers plug-ins only ThrowError.
[[noreturn]] inline void ThrowInvalidTypeConversion() {
  ThrowError(ErrorLevel::kError,
             "$$$/nrvcore/utility/Error/InvalidTypeConversion=Invalid type conversion.", 105, 21,
             true, ReplacementValue(), ReplacementValue(), ReplacementValue(), ReplacementValue());
}

}  // namespace nrvcore::config
