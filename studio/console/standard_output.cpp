#include "studio/console/standard_output.h"

#include <cerrno>
#include <cstdio>

#include "studio/base/studio_error.h"

void Print(const QString& text) {
  if (std::fputs(qPrintable(text), stdout) >= 0 && std::fflush(stdout) == 0) return;
  throw StudioError("$$$/Studio/Line/NoOutput=cannot write to the standard output: %1",
                    ReasonText(errno));
}
