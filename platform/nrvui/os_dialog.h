#pragma once

#include <cstdint>

#include "platform/nrvcore/export.h"
#include "platform/nrvui/ui_node.h"

class NSWindow;

namespace nrvui::drawbot {

/// The host's drawing functions. The toolkit passes the pointer on and calls nothing of it.
class NRV_EXPORT SupplierInterface {
 public:
  virtual ~SupplierInterface();
};

}  // namespace nrvui::drawbot

namespace nrvui::datatransfer {

/// A target for drag and drop. It accepts nothing until it is attached to a view.
class NRV_EXPORT OS_DropTarget {
 public:
  OS_DropTarget();
  OS_DropTarget(const OS_DropTarget&) = delete;
  OS_DropTarget& operator=(const OS_DropTarget&) = delete;
  virtual ~OS_DropTarget();
};

}  // namespace nrvui::datatransfer

namespace nrvui::ui {

/// The style of a dialog's window, set at construction. For presenters with real windows.
struct DialogStyle {
  bool staysOnTop = false;
  bool keepsCentre = false;  // keeps its centre when it is resized
  bool isToolWindow = false;
  bool hasTitleBar = true;
  bool hasCloseBox = true;
  std::uint32_t value = 0;  // for the host; presenters ignore it
  std::uint32_t flags = 1;  // for the host too
};

/// Where a dialog opens.
enum class DialogPlacement {
  kAtPoint,     // at the point given at construction
  kCentered,    // in the middle of the screen
  kPositioned,  // where the platform places dialogs: over its parent window if it has one
};

class UI_Dialog;

/// A node with a platform window; every one is a UI_Dialog. Its local rectangle is its content.
/// Sizes and positions are in points, positions relative to the top left corner of the screen.
class NRV_EXPORT OS_Dialog : public UI_Node {
 public:
  ~OS_Dialog() override;

  /// Runs the dialog in the installed presenter and returns when it has closed. Throws an Error
  /// when no presenter is installed, std::logic_error when the dialog is open already.
  virtual void RunModal();

  void Center();
  DialogPlacement GetPlacement() const { return placement; }
  nrvcore::geom::PointT<float> GetDialogPoint() const { return dialogPoint; }

  /// Limits the size that the user can give the content; does not resize it. Sides are clamped as
  /// in UI_SetLocalRectF.
  void SetMinimumSize(nrvcore::geom::PointT<float> newMinimumSize);
  nrvcore::geom::PointT<float> GetMinimumSize() const { return minimumSize; }
  /// Sets the local rectangle; calls UI_ContentRectChanged if it differs.
  void SetContentSize(nrvcore::geom::PointT<float> contentSize);
  nrvcore::geom::PointT<float> GetContentSize() const;

  const nrvcore::UTF16String& GetTitle() const { return title; }
  const DialogStyle& GetStyle() const { return style; }
  const drawbot::SupplierInterface* GetDrawingSupplier() const { return supplier; }

 private:
  friend class UI_Dialog;

  OS_Dialog(const drawbot::SupplierInterface* drawingSupplier,
            const nrvcore::UTF16String& windowTitle, nrvcore::geom::PointT<float> point,
            nrvcore::geom::PointT<float> contentSize, NSWindow* platformWindow,
            const DialogStyle& windowStyle);

  void SetPlacement(DialogPlacement newPlacement);

  const drawbot::SupplierInterface* supplier;
  nrvcore::UTF16String title;
  nrvcore::geom::PointT<float> dialogPoint;
  nrvcore::geom::PointT<float> minimumSize;
  DialogStyle style;
  DialogPlacement placement = DialogPlacement::kAtPoint;
  bool isOpen = false;
};

}  // namespace nrvui::ui
