#pragma once

#include <ctime>

#include "platform/nrvui/dialog_presenter.h"
#include "testkit/hosted_module.h"

namespace bench {

/// The calling thread's processor time in seconds; other load on the machine does not change it.
inline double ThreadTime() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

/// The built module in a stand-in host, started by the constructor and shut down by the destructor.
class BuiltModule : HostedModule {
 public:
  BuiltModule();

  /// The module's entry point, without the stand-in host.
  PluginEntryPoint Entry() const { return image.Entry(); }
  PluginMessage Message();

  /// Runs the dialog on a source of 300 by 200 points with the given presenter. Returns the
  /// ThreadTime at the call.
  double RunDialog(nrvui::ui::DialogPresenter& presenter);

 private:
  standin::ModuleImage image;
};

/// Records when a dialog is ready for the first gesture, and cancels it.
class ImpatientPerson final : public nrvui::ui::DialogPresenter {
 public:
  void Present(nrvui::ui::UI_Dialog& dialog) override;

  /// As a ThreadTime.
  double ReadyAt() const { return readyAt; }

 private:
  double readyAt = 0;
};

}  // namespace bench
