#include <gtest/gtest.h>

#include <QApplication>
#include <utility>

#include "qt/window_test.h"

namespace {

QStringList warnings;

void NoteWarning(QtMsgType, const QMessageLogContext&, const QString& message) {
  warnings += message;
}

}  // namespace

QStringList TakeWarnings() {
  return std::exchange(warnings, {});
}

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  qInstallMessageHandler(NoteWarning);
  return RUN_ALL_TESTS();
}
