#include "host/resource_text.h"

#include "host/suite_access.h"

bool ReadListEntry(ModuleRef module, int32_t list, int32_t index, char* buffer, size_t size) {
  buffer[0] = '\0';
  const ResultCode code = Suite<KDMBasicSuite>()->GetListString(module, list, index, buffer, size);
  if (Failed(code)) buffer[0] = '\0';
  return buffer[0] != '\0';
}
