#pragma once

#include "platform/nrvui/dialog_presenter.h"
#include "platform/nrvui/dialog_style.h"
#include "platform/nrvui/supplier_interface.h"
#include "platform/nrvui/ui_node.h"

class NSWindow;

namespace nrvui::ui {

/// Where a dialog opens.
enum class DialogPlacement {
  kAtPoint,     // at the point given at construction
  kCentered,    // in the middle of the screen
  kPositioned,  // where the platform places dialogs: over its parent window if it has one
};

/// A node that is a platform window. Its local rectangle is its content; sizes and places are in
/// points, a place counts from the top left of the screen.
class NRV_EXPORT OS_Dialog : public UI_Node {
 public:
  ~OS_Dialog() override;

  /// Hands the dialog to the installed presenter and returns when it has closed. Throws an Error
  /// when no presenter is installed, std::logic_error when the dialog is open already.
  virtual void RunModal();

  void Center();
  DialogPlacement GetPlacement() const;
  nrvcore::geom::PointT<float> GetDialogPoint() const;

  /// Bounds what a person can make of the content; the content itself stays as it is. Sides count
  /// as in UI_SetLocalRectF.
  void SetMinimumSize(nrvcore::geom::PointT<float> newMinimumSize);
  nrvcore::geom::PointT<float> GetMinimumSize() const;
  /// Becomes the local rectangle; UI_ContentRectChanged hears of it when it differs.
  void SetContentSize(nrvcore::geom::PointT<float> contentSize);
  nrvcore::geom::PointT<float> GetContentSize() const;

  const nrvcore::UTF16String& GetTitle() const;
  const DialogStyle& GetStyle() const;
  const drawbot::SupplierInterface* GetDrawingSupplier() const;

 protected:
  OS_Dialog(const drawbot::SupplierInterface* drawingSupplier,
            const nrvcore::UTF16String& windowTitle, nrvcore::geom::PointT<float> point,
            nrvcore::geom::PointT<float> contentSize, NSWindow* platformWindow,
            const DialogStyle& windowStyle);

  virtual void Run(DialogPresenter& presenter) = 0;

  void SetPlacement(DialogPlacement newPlacement);

 private:
  const drawbot::SupplierInterface* supplier;
  nrvcore::UTF16String title;
  nrvcore::geom::PointT<float> dialogPoint;
  nrvcore::geom::PointT<float> minimumSize;
  DialogStyle style;
  DialogPlacement placement = DialogPlacement::kAtPoint;
  bool isOpen = false;
};

}  // namespace nrvui::ui
