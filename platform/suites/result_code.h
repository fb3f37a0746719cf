#pragma once

#include <cstdint>

/// A four-character code as the signed 32-bit number that stands for it: the first character is
/// the most significant byte.
constexpr int32_t FourCharCode(const char (&text)[5]) {
  uint32_t value = 0;
  for (int i = 0; i < 4; ++i) value = value << 8 | static_cast<unsigned char>(text[i]);
  return static_cast<int32_t>(value);
}

// Callers in C++14 are not warned of a result that they drop.
#if __cplusplus >= 201703L
#define TESSERAE_NODISCARD [[nodiscard]]
#else
#define TESSERAE_NODISCARD
#endif

/// What every operation between host and module answers: 0 for success, otherwise a reason.
/// A host may answer with any other value as well; such a value is handed on as it is.
enum class TESSERAE_NODISCARD ResultCode : int32_t {
  kSuccess = 0,
  kNotHandled = FourCharCode("!MSG"),   // the plug-in does not answer this message
  kOutOfMemory = FourCharCode("!MEM"),  // the host gave no memory
  kCannot = FourCharCode("CANT"),       // it could not be done, mostly as an exception ended it
  kParameter = FourCharCode("PARM"),    // an argument, or the suite to publish, is not fit
  kCancelled = FourCharCode("STOP"),    // the user closed the dialog without OK
  kPurged = FourCharCode("pFls"),       // answer to a purge request that freed something
};

#undef TESSERAE_NODISCARD

constexpr bool Failed(ResultCode code) {
  return code != ResultCode::kSuccess;
}
