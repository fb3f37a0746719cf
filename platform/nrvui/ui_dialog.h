#pragma once

#include "platform/nrvui/os_dialog.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_views.h"

namespace nrvui::ui {

/// The result of a dialog.
enum DialogResponse : std::int32_t {
  kNoResponse = 0,  // still open
  kOkResponse = 1,
  kCancelResponse = 2,
};

/// A dialog with a root view for its content, an OK and a Cancel button and a response. Its
/// constructor must not take and release a reference: the count is still 0, so the release would
/// destroy the dialog.
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
  /// Any response but kNoResponse closes the dialog; a later one replaces it.
  virtual void SetResponse(DialogResponse newResponse);
  virtual void DefaultCloseOk();
  virtual void DefaultCloseCancel();

  DialogResponse GetResponse() const { return response; }

  /// The only child, never null; it follows the dialog's size.
  const boost::intrusive_ptr<OS_View>& GetRootView() const { return rootView; }

  void SetOkButton(const boost::intrusive_ptr<controls::UI_Button>& button);
  void SetCancelButton(const boost::intrusive_ptr<controls::UI_Button>& button);
  void SetInitialFocus(const boost::intrusive_ptr<UI_Node>& node);
  const boost::intrusive_ptr<controls::UI_Button>& GetOkButton() const { return okButton; }
  const boost::intrusive_ptr<controls::UI_Button>& GetCancelButton() const { return cancelButton; }
  const boost::intrusive_ptr<UI_Node>& GetInitialFocus() const { return initialFocus; }

  /// Lets the platform choose the position.
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
