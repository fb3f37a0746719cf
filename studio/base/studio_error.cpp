#include "studio/base/studio_error.h"

#include <new>

#include "platform/nrvcore/file.h"

QString ReasonText(const std::exception& error) {
  if (dynamic_cast<const std::bad_alloc*>(&error)) return Text(kNoMemory);
  return FileName(error.what());
}

QString ReasonText(int systemError) {
  return FileName(QByteArray::fromStdString(nrvcore::ReasonFor(systemError)));
}

QString Sentence(QString reason) {
  if (reason.isEmpty()) return reason;
  reason[0] = reason[0].toUpper();
  const bool isEnded = reason.endsWith('.') || reason.endsWith(u'。');
  return isEnded ? reason : Text("$$$/Studio/Box/Sentence=%1.", reason);
}
