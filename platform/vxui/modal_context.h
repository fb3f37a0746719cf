#pragma once

#include "platform/nrvcore/export.h"

namespace vx::ui {

/// Lives for the whole of a modal run; the host sees from it whether a plug-in's run is going on.
class NRV_EXPORT ModalContext {
 public:
  /// Presenters keep the whole application from input in either case.
  explicit ModalContext(bool blocksApplication);
  ModalContext(const ModalContext&) = delete;
  ModalContext& operator=(const ModalContext&) = delete;
  ~ModalContext();

  /// How many are alive.
  static int Depth();
};

}  // namespace vx::ui
