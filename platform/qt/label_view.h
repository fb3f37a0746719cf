#pragma once

#include <QLabel>

#include "platform/nrvui/ui_controls.h"
#include "platform/qt/node_view.h"

namespace qtui {

/// The label of another control, or a value that is shown as it stands.
class LabelView final : public CaptionedView {
 public:
  LabelView(nrvui::controls::UI_StaticText& shown, QWidget& parent);

  QWidget* Widget() const override { return &label; }
  bool IsLabel() const;
  /// The control that the label belongs to.
  void SetBuddy(NodeView& buddy);
  /// Of a value: what it is the value of.
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
