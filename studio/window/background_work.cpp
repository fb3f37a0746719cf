#include "studio/window/background_work.h"

#include <QEventLoop>
#include <QProgressDialog>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <exception>
#include <memory>

#include "studio/text.h"

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

}  // namespace

bool DoInBackground(QWidget& window, const QString& label,
                    const std::function<bool(const Progress&)>& work) {
  QEventLoop loop;
  Worker worker(work, loop);
  QTimer::singleShot(kQuietTime, &loop, &QEventLoop::quit);
  if (!worker.IsDone()) loop.exec(QEventLoop::ExcludeUserInputEvents);
  if (worker.IsDone()) return worker.Result();

  QProgressDialog dialog(label, Text("$$$/Studio/Progress/Cancel=Cancel"), 0, kSteps, &window);
  dialog.setObjectName("progress");
  dialog.setWindowTitle(window.windowTitle().remove("[*]"));
  dialog.setWindowModality(Qt::ApplicationModal);
  dialog.setAutoClose(false);
  dialog.setAutoReset(false);
  dialog.setMinimumDuration(0);
  dialog.setMinimumWidth(dialog.fontMetrics().averageCharWidth() * 52);
  dialog.show();
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &dialog, [&] {
    if (!dialog.wasCanceled()) dialog.setValue(worker.StepsDone());
  });
  QObject::connect(&dialog, &QProgressDialog::canceled, &dialog, [&] { worker.Cancel(); });
  timer.start(kInterval);
  if (!worker.IsDone()) loop.exec();
  worker.Cancel();  // the program may be ending
  return worker.Result() && !dialog.wasCanceled();
}
