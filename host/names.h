#pragma once

#include <cstring>

/// Names of messages and notifiers are compared byte for byte; an absent one is none.
inline bool IsNamed(const char* text, const char* name) {
  return text && std::strcmp(text, name) == 0;
}
