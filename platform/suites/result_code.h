#pragma once

#include <cstdint>

/// A four-character code as a signed 32-bit number; the first character is the most significant
/// byte.
constexpr int32_t FourCharCode(const char (&text)[5]) {
  uint32_t value = 0;
  for (int i = 0; i < 4; ++i) value = value << 8 | static_cast<unsigned char>(text[i]);
  return static_cast<int32_t>(value);
}

// C++14 has no [[nodiscard]].
#if __cplusplus >= 201703L
#define TESSERAE_NODISCARD [[nodiscard]]
#else
#define TESSERAE_NODISCARD
#endif

/// The result of an operation between host and module: 0 for success, otherwise the reason. Hosts
/// may return values of their own; the module returns them unchanged.
enum class TESSERAE_NODISCARD ResultCode : int32_t {
  kSuccess = 0,
  kNotHandled = FourCharCode("!MSG"),   // the plug-in does not handle this message
  kOutOfMemory = FourCharCode("!MEM"),  // the host has no memory
  kCannot = FourCharCode("CANT"),       // any other failure, usually an exception
  kParameter = FourCharCode("PARM"),    // an invalid argument, or the suite cannot be published
  kCancelled = FourCharCode("STOP"),    // the user closed the dialog without OK
  kPurged = FourCharCode("pFls"),       // a purge request freed something
};

#undef TESSERAE_NODISCARD

constexpr bool Failed(ResultCode code) {
  return code != ResultCode::kSuccess;
}
