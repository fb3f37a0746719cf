#include "studio/window/background_work.h"

#include <QEventLoop>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <exception>
#include <memory>

#include "studio/base/text.h"

namespace {

constexpr int kQuietTime = 500;  // ms
constexpr int kInterval = 50;    // ms
constexpr int kSteps = 1000;

/// The thread that works, from construction to destruction. Ends the loop when it is done.
class Worker {
 public:
  Worker(const std::function<bool(const Progress&)>& work, QEventLoop& loop)
      : thread(QThread::create([this, &work, &loop] {
          Run(work);
          isDone = true;
          QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
        })) {
    thread->start();
  }
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;
  ~Worker() {
    Cancel();
    thread->wait();
  }

  void Cancel() { isCancelled = true; }
  int StepsDone() const { return stepsDone; }
  bool IsDone() const { return isDone; }

  bool Result() {
    thread->wait();
    if (failure) std::rethrow_exception(failure);
    return isComplete;
  }

 private:
  void Run(const std::function<bool(const Progress&)>& work) {
    try {
      isComplete = work([this](double share) {
        stepsDone = int(share * kSteps);
        return !isCancelled;
      });
    } catch (...) {
      failure = std::current_exception();
    }
  }

  std::atomic<bool> isCancelled = false;
  std::atomic<int> stepsDone = 0;
  std::atomic<bool> isDone = false;
  bool isComplete = false;
  std::exception_ptr failure;
  const std::unique_ptr<QThread> thread;
};

/// Says how far the work is. Stays until the work has stopped, however it is cancelled.
class WorkDialog final : public QProgressDialog {
 public:
  WorkDialog(QWidget& window, const QString& text)
      : QProgressDialog(&window),
        label(new QLabel(text)),
        button(new QPushButton(Text("$$$/Studio/Progress/Cancel=Cancel"))) {
    setObjectName("progress");
    setWindowTitle(window.windowTitle().remove("[*]"));
    setWindowModality(Qt::ApplicationModal);
    setAutoReset(false);
    setMinimumDuration(0);
    setMinimumWidth(fontMetrics().averageCharWidth() * 52);
    setRange(0, kSteps);
    label->setTextFormat(Qt::PlainText);
    setLabel(label);
    setCancelButton(button);
    disconnect(this, SIGNAL(canceled()), this, SLOT(cancel()));  // which would hide it
    connect(this, &QProgressDialog::canceled, this, &WorkDialog::Cancel);
  }

  bool IsCancelled() const { return isCancelled; }

  void reject() override { Cancel(); }

 private:
  void Cancel() {
    isCancelled = true;
    label->setText(Text("$$$/Studio/Progress/Stopping=Stopping…"));
    button->hide();
  }

  QLabel* const label;
  QPushButton* const button;
  bool isCancelled = false;
};

}  // namespace

bool DoInBackground(QWidget& window, const QString& label,
                    const std::function<bool(const Progress&)>& work) {
  QEventLoop loop;
  Worker worker(work, loop);
  QTimer::singleShot(kQuietTime, &loop, &QEventLoop::quit);
  if (!worker.IsDone()) loop.exec(QEventLoop::ExcludeUserInputEvents);
  if (worker.IsDone()) return worker.Result();

  WorkDialog dialog(window, label);
  dialog.show();
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &dialog, [&] {
    if (dialog.IsCancelled()) return worker.Cancel();
    dialog.setValue(worker.StepsDone());
  });
  timer.start(kInterval);
  if (!worker.IsDone()) loop.exec();
  worker.Cancel();  // the program may be ending
  return worker.Result() && !dialog.IsCancelled();
}
