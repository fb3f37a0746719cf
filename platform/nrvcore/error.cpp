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
  return Key();
}

const char* Error::Key() const noexcept {
  return key.View().data();
}

const UTF16String& Error::Text() const noexcept {
  return text;
}

ErrorLevel Error::Level() const noexcept {
  return level;
}

unsigned Error::Number() const noexcept {
  return number;
}

int Error::Code() const noexcept {
  return code;
}

bool Error::Flag() const noexcept {
  return flag;
}

void ThrowError(ErrorLevel level, const char* key, unsigned number, int code, bool flag,
                const ReplacementValue& first, const ReplacementValue& second,
                const ReplacementValue& third, const ReplacementValue& fourth) {
  const UTF16String text = Localizer::Get().Localize(key, {first, second, third, fourth});
  throw Error(level, key, number, code, flag, text);
}

void ThrowInvalidTypeConversion() {
  ThrowError(ErrorLevel::kError, kInvalidTypeConversion, 105, 21, true, {}, {}, {}, {});
}

}  // namespace nrvcore::config
