#pragma once

#include <ctime>

#include "check/hosted_module.h"
#include "platform/nrvui/dialog_presenter.h"

namespace bench {

/// Seconds of the processor that this thread has had; others that want it don't count.
inline double ThreadTime() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

/// The module as it is built, started until the end of the scope.
class BuiltModule : HostedModule {
 public:
  BuiltModule();

  /// The module's own entry point, without the host around it.
  PluginEntryPoint Entry() const { return image.Entry(); }
  PluginMessage Message();

  /// The whole dialog over a source of 300 by 200 points, shown by the presenter; answers the
  /// ThreadTime at which it was called for.
  double RunDialog(nrvui::ui::DialogPresenter& presenter);

 private:
  standin::ModuleImage image;
};

/// Notes when a dialog is ready for the first gesture, and cancels it.
class ImpatientPerson final : public nrvui::ui::DialogPresenter {
 public:
  void Present(nrvui::ui::UI_Dialog& dialog) override;

  /// In ThreadTime.
  double ReadyAt() const { return readyAt; }

 private:
  double readyAt = 0;
};

}  // namespace bench
