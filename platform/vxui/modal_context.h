#pragma once

#include "platform/nrvcore/export.h"

namespace vx::ui {

/// Exists for the length of a modal run, so that the host knows whether a plug-in runs a dialog.
class NRV_EXPORT ModalContext {
 public:
  /// Presenters block the application's input in either case.
  explicit ModalContext(bool blocksApplication);
  ModalContext(const ModalContext&) = delete;
  ModalContext& operator=(const ModalContext&) = delete;
  ~ModalContext();

  /// The number of contexts that exist.
  static int Depth();
};

}  // namespace vx::ui
