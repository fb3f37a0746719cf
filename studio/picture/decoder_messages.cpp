#include "studio/picture/decoder_messages.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace {

thread_local DecoderMessages* current = nullptr;

constexpr const char* kDamage[] = {"premature end", "Huffman", "instead of RST",
                                   "Invalid progressive"};

}  // namespace

DecoderMessages::DecoderMessages()
    : previous(qInstallMessageHandler(Collect)), errorOutput(dup(STDERR_FILENO)) {
  current = this;
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (errorOutput < 0 || nowhere < 0) return;
  dup2(nowhere, STDERR_FILENO);
  close(nowhere);
}

DecoderMessages::~DecoderMessages() {
  current = nullptr;
  qInstallMessageHandler(previous);
  if (errorOutput < 0) return;
  dup2(errorOutput, STDERR_FILENO);
  close(errorOutput);
}

void DecoderMessages::Collect(QtMsgType type, const QMessageLogContext& context,
                              const QString& text) {
  if (current) {
    current->messages << text;
    return;
  }
  fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
}

bool DecoderMessages::TellOfDamage() const {
  return std::any_of(messages.begin(), messages.end(), [](const QString& message) {
    return std::any_of(std::begin(kDamage), std::end(kDamage), [&](const char* words) {
      return message.contains(QLatin1String(words), Qt::CaseInsensitive);
    });
  });
}
