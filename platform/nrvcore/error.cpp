#include "platform/nrvcore/error.h"

#include "platform/nrvcore/localizer.h"

namespace nrvcore::config {

Error::Error(ErrorLevel errorLevel, const char* errorKey, unsigned errorNumber, int errorCode,
             bool errorFlag, const UTF16String& errorText)
    : level(errorLevel),
      key(errorKey),
      number(errorNumber),
      code(errorCode),
      flag(errorFlag),
      text(errorText) {}

Error::Error(const Error& other) = default;
Error::~Error() = default;

const char* Error::what() const noexcept {
  return key.View().data();
}

void ThrowError(ErrorLevel level, const char* key, unsigned number, int code, bool flag,
                const ReplacementValue& first, const ReplacementValue& second,
                const ReplacementValue& third, const ReplacementValue& fourth) {
  const UTF16String text = Localizer::Get().Localize(key, {first, second, third, fourth});
  throw Error(level, key, number, code, flag, text);
}

}  // namespace nrvcore::config
