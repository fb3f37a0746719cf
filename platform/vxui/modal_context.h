#pragma once

#include "platform/nrvcore/export.h"

namespace vx::ui {

/// Lives for the whole of a modal run, so that the host knows that one is going on.
class NRV_EXPORT ModalContext {
 public:
  /// `blocksApplication` keeps the whole application from input, not the parent window alone.
  explicit ModalContext(bool blocksApplication);
  ModalContext(const ModalContext&) = delete;
  ModalContext& operator=(const ModalContext&) = delete;
  ~ModalContext();

  /// How many are alive.
  static int Depth();
  static bool IsApplicationBlocked();

 private:
  bool blocks;
};

}  // namespace vx::ui
