#pragma once

#include <cstdint>

namespace nrvui::ui {

/// How a dialog's window looks, as given at construction. For presenters with real windows.
struct DialogStyle {
  bool staysOnTop = false;
  bool keepsCentre = false;  // grows and shrinks around its middle
  bool isToolWindow = false;
  bool hasTitleBar = true;
  bool hasCloseBox = true;
  std::uint32_t value = 0;  // the host's own; nobody here interprets it
  std::uint32_t flags = 1;  // likewise
};

/// Where a dialog opens.
enum class DialogPlacement {
  kAtPoint,     // at the point given at construction
  kCentered,    // in the middle of the screen
  kPositioned,  // where the platform places dialogs: over its parent window if it has one
};

/// With what a dialog closed.
enum DialogResponse : std::int32_t {
  kNoResponse = 0,  // still open
  kOkResponse = 1,
  kCancelResponse = 2,
};

}  // namespace nrvui::ui
