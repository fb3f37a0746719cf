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

}  // namespace nrvui::ui
