#include "platform/nrvcore/error.h"

#include "platform/nrvcore/localizer.h"

namespace nrvcore::config {

Error::Error(const char* errorKey, const UTF16String& errorText) : key(errorKey), text(errorText) {}

Error::Error(const Error& other) = default;
Error::~Error() = default;

const char* Error::what() const noexcept {
  return key.View().data();
}

void ThrowError(ErrorLevel, const char* key, unsigned, int, bool, const ReplacementValue& first,
                const ReplacementValue& second, const ReplacementValue& third,
                const ReplacementValue& fourth) {
  const UTF16String text = Localizer::Get().Localize(key, {first, second, third, fourth});
  throw Error(key, text);
}

void ThrowInvalidTypeConversion() {
  ThrowError(ErrorLevel::kError, kInvalidTypeConversion, 105, 21, true, {}, {}, {}, {});
}

}  // namespace nrvcore::config
