#pragma once

#include <QLabel>

#include "platform/nrvui/ui_controls.h"
#include "platform/qt/node_view.h"

namespace qtui {

/// The label of another control, or a read-only value.
class LabelView final : public CaptionedView {
 public:
  LabelView(nrvui::controls::UI_StaticText& shown, QWidget& parent);

  QWidget* Widget() const override { return &label; }
  bool IsLabel() const;
  /// Sets the control that the label names.
  void SetBuddy(NodeView& buddy);
  /// Sets the name of the quantity, for a read-only value.
  void SetName(const QString& spokenName) override;

 protected:
  QString Caption(bool withMnemonic) const override;
  void SetCaption(const QString& caption) override;

 private:
  nrvui::controls::UI_StaticText& text;
  QLabel& label;
  NodeView* labelled = nullptr;
  QString name;
};

}  // namespace qtui
