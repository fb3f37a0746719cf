#pragma once

#include <cstdint>

#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_views.h"

class NSWindow;

namespace nrvui::drawbot {

/// The host's drawing functions. The toolkit stores a pointer to them and calls none.
class NRV_EXPORT SupplierInterface {
 public:
  virtual ~SupplierInterface();
};

}  // namespace nrvui::drawbot

namespace nrvui::datatransfer {

/// A target for drag and drop. It accepts data only while it is attached to a view.
class NRV_EXPORT OS_DropTarget {
 public:
  OS_DropTarget();
  OS_DropTarget(const OS_DropTarget&) = delete;
  OS_DropTarget& operator=(const OS_DropTarget&) = delete;
  virtual ~OS_DropTarget();
};

}  // namespace nrvui::datatransfer

namespace nrvui::ui {

/// The style of a dialog's window, set at construction. Presenters with real windows apply it.
struct DialogStyle {
  bool staysOnTop = false;
  bool keepsCentre = false;  // keeps its centre when it is resized
  bool isToolWindow = false;
  bool hasTitleBar = true;
  bool hasCloseBox = true;
  std::uint32_t value = 0;  // for the host; presenters ignore it
  std::uint32_t flags = 1;  // for the host; presenters ignore it
};

/// Where a dialog opens.
enum class DialogPlacement {
  kAtPoint,     // at the point given at construction
  kCentered,    // in the middle of the screen
  kPositioned,  // where the platform places dialogs: over its parent window if it has one
};

/// The result of a dialog.
enum DialogResponse : std::int32_t {
  kNoResponse = 0,  // still open
  kOkResponse = 1,
  kCancelResponse = 2,
};

class UI_Dialog;

/// The window part of a UI_Dialog. Its local rectangle is the window's content. Sizes and positions
/// are in points; positions are relative to the top left corner of the screen.
class NRV_EXPORT OS_Dialog : public UI_Node {
 public:
  ~OS_Dialog() override;

  /// Passes the dialog, which must be on the heap, to the installed presenter and returns when it
  /// has closed. Throws an Error if no presenter is installed, and std::logic_error if the dialog
  /// is already open.
  virtual void RunModal();

  /// Makes the dialog open in the middle of the screen.
  void Center();
  DialogPlacement GetPlacement() const { return placement; }
  nrvcore::geom::PointT<float> GetDialogPoint() const { return dialogPoint; }

  /// Limits the size that the user can give the content; the present size stays. Clamps both sides
  /// as UI_SetLocalRectF does.
  void SetMinimumSize(nrvcore::geom::PointT<float> newMinimumSize);
  nrvcore::geom::PointT<float> GetMinimumSize() const { return minimumSize; }
  /// Sets the local rectangle. Calls UI_ContentRectChanged if the size differs.
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

  const drawbot::SupplierInterface* supplier;
  nrvcore::UTF16String title;
  nrvcore::geom::PointT<float> dialogPoint;
  nrvcore::geom::PointT<float> minimumSize;
  DialogStyle style;
  DialogPlacement placement = DialogPlacement::kAtPoint;
  bool isOpen = false;
};

/// A dialog with a root view for its content, an OK and a Cancel button and a response. The caller
/// of its constructor takes the first reference. Constructors of derived classes must not take and
/// release one: the count is still 0, so the release would destroy the dialog.
class NRV_EXPORT UI_Dialog : public OS_Dialog {
 public:
  /// `dialogPoint` and `contentSize` are in points. `platformWindow` is not used; `styleValue` and
  /// `flags` are for the host.
  UI_Dialog(const drawbot::SupplierInterface* drawingSupplier,
            const nrvcore::UTF16String& windowTitle, nrvcore::geom::PointT<float> dialogPoint,
            nrvcore::geom::PointT<float> contentSize, bool staysOnTop, NSWindow* platformWindow,
            bool keepsCentre, bool isToolWindow, bool hasTitleBar, bool hasCloseBox,
            std::uint32_t styleValue, std::uint32_t flags);
  ~UI_Dialog() override;

  /// Closes with OK if an OK button is registered, visible and enabled; otherwise does nothing.
  virtual void OnReturnKey();
  /// Cancels unless a registered cancel button is disabled.
  virtual void OnEscapeKey();
  /// Cancels, whatever the state of the buttons.
  virtual void OnCloseButton();
  /// Any response but kNoResponse closes the dialog. A later response replaces it.
  virtual void SetResponse(DialogResponse newResponse);
  virtual void DefaultCloseOk();
  virtual void DefaultCloseCancel();

  DialogResponse GetResponse() const { return response; }

  /// The dialog's only child, never null. It has the size of the dialog's content.
  const boost::intrusive_ptr<OS_View>& GetRootView() const { return rootView; }

  void SetOkButton(const boost::intrusive_ptr<controls::UI_Button>& button);
  void SetCancelButton(const boost::intrusive_ptr<controls::UI_Button>& button);
  void SetInitialFocus(const boost::intrusive_ptr<UI_Node>& node);
  const boost::intrusive_ptr<controls::UI_Button>& GetOkButton() const { return okButton; }
  const boost::intrusive_ptr<controls::UI_Button>& GetCancelButton() const { return cancelButton; }
  const boost::intrusive_ptr<UI_Node>& GetInitialFocus() const { return initialFocus; }

  /// Makes the dialog open where the platform places dialogs.
  void Position();

  void UI_ContentRectChanged(const nrvcore::geom::RectT<float>& rect) override;

 private:
  boost::intrusive_ptr<OS_View> rootView;
  boost::intrusive_ptr<controls::UI_Button> okButton;
  boost::intrusive_ptr<controls::UI_Button> cancelButton;
  boost::intrusive_ptr<UI_Node> initialFocus;
  DialogResponse response = kNoResponse;
};

}  // namespace nrvui::ui
