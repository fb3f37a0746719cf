#pragma once

#include <functional>
#include <utility>

#include "platform/qt/qt_presenter.h"

/// Calls functions of a test for the dialogs of a presenter, which must outlive it.
class FunctionListener final : public qtui::DialogListener {
 public:
  using PaintedFunction = std::function<void(QWidget& window)>;
  using ChangedFunction = std::function<qtui::Summary(
      const nrvui::ui::UI_Dialog&, const std::optional<qtui::PendingEntry>& pending)>;

  explicit FunctionListener(qtui::QtPresenter& followed) : presenter(followed) {
    presenter.AddListener(*this);
  }
  ~FunctionListener() { presenter.RemoveListener(*this); }
  FunctionListener(const FunctionListener&) = delete;
  FunctionListener& operator=(const FunctionListener&) = delete;

  void WhenPainted(PaintedFunction function) { painted = std::move(function); }
  void WhenChanged(ChangedFunction function) { changed = std::move(function); }

  void DialogPainted(QWidget& window) override {
    if (painted) painted(window);
  }
  std::optional<qtui::Summary> DialogChanged(
      const nrvui::ui::UI_Dialog& dialog,
      const std::optional<qtui::PendingEntry>& pending) override {
    if (!changed) return std::nullopt;
    return changed(dialog, pending);
  }

 private:
  qtui::QtPresenter& presenter;
  PaintedFunction painted;
  ChangedFunction changed;
};
