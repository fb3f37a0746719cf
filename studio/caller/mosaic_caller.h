#pragma once

#include <QString>
#include <memory>
#include <string>

#include "mosaic/mosaic_suite.h"
#include "platform/standin/host.h"
#include "platform/standin/module.h"

/// A caller of the module's dialog: brings up a host, loads the module into it, and asks.
class MosaicCaller {
 public:
  enum class Answer { kOk, kCancelled };

  /// Loads the module that belongs to this program and starts it. What the host shows goes to
  /// `userInterface`, which must outlive the caller. Throws StudioError.
  explicit MosaicCaller(standin::UserInterface& userInterface);

  /// Shows the dialog over both; they change on kOk only. Throws StudioError when the dialog cannot
  /// be shown or run.
  Answer Ask(MosaicParameters& params, MosaicDialogState& state);

  /// Under which the module asked to be shown.
  QString ModuleName() const;
  /// Asks the module to show its about box. Throws StudioError when it cannot.
  void ShowAbout();

  /// Shuts the module down. Throws StudioError when that fails or when the module holds anything
  /// after it.
  void Close();

 private:
  std::string Reason(ResultCode code) const;

  standin::Host host;
  std::unique_ptr<standin::Module> module;
};
