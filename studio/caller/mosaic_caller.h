#pragma once

#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "mosaic/mosaic_suite.h"
#include "platform/standin/host.h"
#include "platform/standin/module.h"
#include "platform/standin/user_interface.h"

/// Starts a host, loads the module into it and calls the module's dialog. Owned by the window or
/// the console run, which use it on the user-interface thread; owns host and module.
class MosaicCaller : private standin::UserInterface {
 public:
  /// Loads the module that is installed with this program and starts it. `userInterface` must
  /// outlive the caller; it shows the host's alerts and about boxes. If a call fails, it and the
  /// operations below throw StudioError, and the alerts of that call become the error's reason.
  explicit MosaicCaller(standin::UserInterface& userInterface);

  /// Shows the dialog modally over a record and state. Returns whether OK ended it; otherwise both
  /// stay unchanged.
  bool Ask(MosaicParameters& params, MosaicDialogState& state);

  /// Has the module show its about box.
  void ShowAbout();

  /// Shuts the module down and unloads it. Also throws when the module has not released everything
  /// that it acquired from the host. Call it before the destructor, which does not report.
  void Close();

 private:
  void ShowAlert(const std::string& text) override { alerts.push_back(text); }
  void ShowAbout(const std::string& firstText, const std::string& secondText) override {
    screen.ShowAbout(firstText, secondText);
  }

  void BeginCall();
  /// Throws with the text of `key` when the call failed; otherwise shows its alerts.
  void EndCall(ResultCode code, const char* key);
  std::string Reason(ResultCode code) const;

  standin::UserInterface& screen;
  std::vector<std::string> alerts;  // of the present call
  standin::Host host;
  std::unique_ptr<standin::Module> module;
};
