#include "studio/console/terminal.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "studio/base/file_name.h"
#include "studio/base/studio_error.h"

namespace {

constexpr qint64 kQuietTime = 500;
constexpr qint64 kInterval = 100;

std::FILE* errorOutput = stderr;

}  // namespace

void SilenceLibraries() {
#ifndef __SANITIZE_ADDRESS__
  const int own = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  std::FILE* const output = fdopen(own, "w");
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (!output || dup2(nowhere, STDERR_FILENO) < 0) return;
  std::setvbuf(output, nullptr, _IONBF, 0);
  errorOutput = output;
  close(nowhere);
#endif
}

void Print(const QString& text) {
  PrintBytes(text.toUtf8());
}

void PrintBytes(const QByteArray& bytes) {
  const auto size = size_t(bytes.size());
  if (std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0) return;
  throw StudioError("$$$/Studio/Line/NoOutput=cannot write to the standard output: %1",
                    ReasonText(errno));
}

void PrintError(const QString& text) {
  std::fprintf(errorOutput, "tesserae-studio: %s\n", qPrintable(OnOneLine(text)));
}

void PrintSentence(const QString& text) {
  std::fprintf(errorOutput, "%s\n", qPrintable(OnOneLine(text)));
}

ProgressLine::ProgressLine(bool isWanted)
    : isTerminal(isWanted && isatty(fileno(errorOutput))), nextTime(kQuietTime) {
  sinceStart.start();
}

ProgressLine::~ProgressLine() {
  if (isShown) std::fputs("\r\033[K", errorOutput);
}

void ProgressLine::Show(int done, int all) {
  if (!isTerminal || sinceStart.elapsed() < nextTime) return;
  nextTime = sinceStart.elapsed() + kInterval;
  isShown = true;
  const QString text = Text("$$$/Studio/Line/Building=Building the mosaic: %1 %  (Ctrl+C cancels)",
                            QString::number(int(100.0 * done / all)));
  std::fprintf(errorOutput, "\r%s", qPrintable(text));
}
