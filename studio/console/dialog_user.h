#pragma once

#include <QImage>
#include <QString>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "platform/nrvui/scripted_presenter.h"
#include "platform/qt/qt_presenter.h"
#include "studio/console/command_line.h"

/// Whether windows can be seen.
bool HasDisplay();

/// Answers the dialogs that open while this lives, as the command line has it: plays a gesture
/// file, with a window or without, or shows a window to a person, or only for its screenshot.
class DialogUser {
 public:
  /// `report` is called with what the person would be told. Throws StudioError when there are no
  /// gestures, a person is needed and there is no display.
  DialogUser(const CommandLine& line, const std::optional<nrvui::gestures::GestureScript>& gestures,
             std::function<void(const std::string&)> report);

  /// `hook` answers what a window's message line says; without a window it is not called.
  void WhenChanged(qtui::QtPresenter::ChangedHook hook) {
    if (windows) windows->WhenChanged(std::move(hook));
  }

  /// Why the last dialog could not be answered; empty when it could.
  QString Problem() const;
  /// What the last dialog looked like; null when the command line doesn't ask for it.
  QImage Screenshot() const { return windows ? windows->Screenshot() : QImage(); }

 private:
  std::optional<nrvui::gestures::ScriptedPresenter> script;  // either this one
  std::optional<qtui::QtPresenter> windows;                  // or this one is installed
  std::optional<nrvui::ui::InstalledPresenter> installed;
};
