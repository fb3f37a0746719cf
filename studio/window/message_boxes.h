#pragma once

#include <QWidget>
#include <exception>

#include "platform/standin/user_interface.h"

/// What the host has to show, and what the studio has to say itself, as boxes over a window.
class MessageBoxes final : public standin::UserInterface {
 public:
  explicit MessageBoxes(QWidget& ownerWindow) : window(&ownerWindow) {}

  void ShowAlert(const std::string& text) override;
  void ShowAbout(const std::string& firstText, const std::string& secondText) override;

  /// `text` says what could not be done; `error` why.
  void ShowError(const QString& text, const std::exception& error) const;

  /// Returns whether to write an export of about so many bytes.
  bool AskBeforeLargeExport(double bytes) const;

  enum class Answer { kExport, kDiscard, kStay };
  /// `picture` names the one whose mosaic would be lost.
  Answer AskBeforeClosing(const QString& picture) const;

 private:
  QWidget* const window;
};
