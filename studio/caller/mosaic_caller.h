#pragma once

#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "mosaic/mosaic_suite.h"
#include "platform/standin/host.h"
#include "platform/standin/module.h"
#include "platform/standin/user_interface.h"

/// A caller of the module's dialog: brings up a host, loads the module into it, and asks.
class MosaicCaller : private standin::UserInterface {
 public:
  /// Loads the module that belongs to this program and starts it. What the host shows goes to
  /// `userInterface`, which must outlive the caller; but what it alerts of during a call that fails
  /// is the reason in the StudioError that this and the operations below throw.
  explicit MosaicCaller(standin::UserInterface& userInterface);

  /// Shows the dialog over both. Answers whether OK ended it; otherwise they stay as they were.
  bool Ask(MosaicParameters& params, MosaicDialogState& state);

  /// Asks the module to show its about box.
  void ShowAbout();

  /// Shuts the module down. Throws also when the module holds anything after it.
  void Close();

 private:
  void ShowAlert(const std::string& text) override { alerts.push_back(text); }
  void ShowAbout(const std::string& firstText, const std::string& secondText) override {
    screen.ShowAbout(firstText, secondText);
  }

  void BeginCall();
  /// Ends a call of the module or host; `key` is the error's text when it failed.
  void EndCall(ResultCode code, const char* key);
  std::string Reason(ResultCode code) const;

  standin::UserInterface& screen;
  std::vector<std::string> alerts;  // of the present call
  standin::Host host;
  std::unique_ptr<standin::Module> module;
};
