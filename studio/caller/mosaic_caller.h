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
  /// Loads and starts the module that is installed with this program. `userInterface` shows the
  /// host's alerts and about boxes and must outlive the caller. This and the operations below throw
  /// StudioError; the alerts of the failed call are then its reason and are not shown.
  explicit MosaicCaller(standin::UserInterface& userInterface);

  /// Shows the dialog modally over a record and state. Returns whether OK ended it; otherwise both
  /// stay unchanged.
  bool Ask(MosaicParameters& params, MosaicDialogState& state);

  /// Has the module show its about box.
  void ShowAbout();

  /// Shuts the module down and unloads it. Also throws if the module did not release everything
  /// that it acquired from the host. To be called before the destructor, which reports no errors.
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
  std::vector<std::string> alerts;  // of the current call
  standin::Host host;
  std::unique_ptr<standin::Module> module;
};
