#include "studio/window/work_dialog.h"

#include <QEventLoop>
#include <QFutureWatcher>
#include <QKeyEvent>
#include <QTimer>
#include <QVBoxLayout>

#include "studio/base/text.h"

namespace {

constexpr int kQuietTime = 500;  // ms
constexpr int kColumns = 52;     // the minimum width, in characters
constexpr const char* kName = "progress";

}  // namespace

WorkDialog::WorkDialog(QWidget& busyWindow, const QString& text, int steps)
    : QDialog(&busyWindow),
      window(busyWindow),
      label(new QLabel(text)),
      bar(new QProgressBar),
      cancel(new QPushButton(Text("$$$/Studio/Progress/Cancel=Cancel"))) {
  setObjectName(kName);
  setWindowTitle(window.windowTitle().remove("[*]"));
  setMinimumWidth(fontMetrics().averageCharWidth() * kColumns);
  label->setTextFormat(Qt::PlainText);
  bar->setRange(0, steps);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(label);
  column->addWidget(bar);
  column->addWidget(cancel, 0, Qt::AlignRight);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  window.installEventFilter(this);
}

WorkDialog::~WorkDialog() {
  window.setEnabled(true);
  if (focus) focus->setFocus();
}

bool WorkDialog::IsOver(const QWidget& window) {
  return window.findChild<QDialog*>(kName, Qt::FindDirectChildrenOnly) != nullptr;
}

void WorkDialog::WaitFor(const QFuture<void>& work) {
  QEventLoop loop;
  QFutureWatcher<void> watcher;
  connect(&watcher, &QFutureWatcherBase::finished, &loop, &QEventLoop::quit);
  connect(&watcher, &QFutureWatcherBase::progressValueChanged, bar, &QProgressBar::setValue);
  connect(this, &QDialog::rejected, &watcher, &QFutureWatcherBase::cancel);
  watcher.setFuture(work);
  QTimer::singleShot(kQuietTime, &loop, &QEventLoop::quit);
  loop.exec(QEventLoop::ExcludeUserInputEvents);
  if (!watcher.isFinished()) {
    ShowProgress();
    loop.exec();  // returns at once if the program is ending
  }
  if (!watcher.isFinished()) watcher.cancel();
  watcher.waitForFinished();
}

/// Disables the window instead of being modal, because a modal dialog would also block closing it.
void WorkDialog::ShowProgress() {
  focus = window.focusWidget();
  window.setEnabled(false);  // with its children, this dialog included
  setEnabled(true);
  show();
}

void WorkDialog::reject() {
  label->setText(Text("$$$/Studio/Progress/Stopping=Cancelling…"));
  cancel->setEnabled(false);
  emit rejected();
}

/// Escape reaches the window when it was pressed before the dialog opened.
bool WorkDialog::eventFilter(QObject*, QEvent* event) {
  const bool isEscape =
      event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
  if (isEscape || event->type() == QEvent::Close) reject();
  return false;
}
