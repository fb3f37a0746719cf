#include "studio/console/progress_line.h"

#include <unistd.h>

#include <cstdio>

#include "studio/base/text.h"

namespace {

constexpr qint64 kQuietTime = 500;
constexpr qint64 kInterval = 100;

}  // namespace

ProgressLine::ProgressLine(bool isWanted)
    : isTerminal(isWanted && isatty(STDERR_FILENO)), nextTime(kQuietTime) {
  sinceStart.start();
}

ProgressLine::~ProgressLine() {
  if (isShown) std::fputs("\r\033[K", stderr);
}

void ProgressLine::Show(int done, int all) {
  if (!isTerminal || sinceStart.elapsed() < nextTime) return;
  nextTime = sinceStart.elapsed() + kInterval;
  isShown = true;
  const QString text = Text("$$$/Studio/Line/Building=Building the mosaic: %1 %  (Ctrl+C stops)",
                            QString::number(int(100.0 * done / all)));
  std::fprintf(stderr, "\r%s", qPrintable(text));
  std::fflush(stderr);
}
