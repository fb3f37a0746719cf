#include "check/check.h"

namespace check {

Checks AllChecks() {
  Checks all;
  for (const auto group : {FileChecks, StartUpChecks, MessageChecks, ReportChecks, ReloadChecks,
                           DialogChecks, FaultChecks, RandomChecks}) {
    const Checks checks = group();
    all.insert(all.end(), checks.begin(), checks.end());
  }
  return all;
}

size_t Step(size_t inShort) {
#ifdef __SANITIZE_ADDRESS__
  inShort *= 2;
#endif
  return settings.isLong ? 1 : inShort;
}

}  // namespace check
