#pragma once

#include "platform/nrvui/ui_dialog.h"

namespace vx::ui {

/// Exists during a modal run, so that the host knows whether a plug-in runs a dialog.
class NRV_EXPORT ModalContext {
 public:
  /// `blocksApplication` has no effect: presenters always block the application's input.
  explicit ModalContext(bool blocksApplication);
  ModalContext(const ModalContext&) = delete;
  ModalContext& operator=(const ModalContext&) = delete;
  ~ModalContext();

  /// The number of contexts that exist.
  static int Depth();
};

/// A modal dialog that pops up from another element.
class NRV_EXPORT UI_PopupModalDialog : public nrvui::ui::UI_Dialog {
 public:
  using UI_Dialog::UI_Dialog;
  ~UI_PopupModalDialog() override;

  void RunModal() override;

  // They reserve the class's three slots in the virtual table; nothing calls them.
  virtual void Unused0();
  virtual void Unused1();
  virtual void Unused2();
};

/// A dialog that floats above the host's documents.
class NRV_EXPORT UI_FloatingDialog : public nrvui::ui::UI_Dialog {
 public:
  using UI_Dialog::UI_Dialog;
  ~UI_FloatingDialog() override;
};

}  // namespace vx::ui
