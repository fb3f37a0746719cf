#pragma once

#include "platform/nrvui/os_dialog.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_views.h"

namespace nrvui::ui {

/// With what a dialog closed.
enum DialogResponse : std::int32_t {
  kNoResponse = 0,  // still open
  kOkResponse = 1,
  kCancelResponse = 2,
};

/// A dialog with a root view for its content, an OK and a Cancel button and a response. During its
/// construction no reference may be taken and dropped: the count is still 0, and the release would
/// destroy the dialog.
class NRV_EXPORT UI_Dialog : public OS_Dialog {
 public:
  /// `dialogPoint` and `contentSize` are in points. `platformWindow` is not used; the last
  /// two are the host's own.
  UI_Dialog(const drawbot::SupplierInterface* drawingSupplier,
            const nrvcore::UTF16String& windowTitle, nrvcore::geom::PointT<float> dialogPoint,
            nrvcore::geom::PointT<float> contentSize, bool staysOnTop, NSWindow* platformWindow,
            bool keepsCentre, bool isToolWindow, bool hasTitleBar, bool hasCloseBox,
            std::uint32_t styleValue, std::uint32_t flags);
  ~UI_Dialog() override;

  /// Confirms when an OK button is registered, visible and enabled; otherwise nothing happens.
  virtual void OnReturnKey();
  /// Cancels unless a registered cancel button is disabled.
  virtual void OnEscapeKey();
  /// Cancels, whatever the buttons say.
  virtual void OnCloseButton();
  /// Any response but kNoResponse closes the dialog; the last one counts.
  virtual void SetResponse(DialogResponse newResponse);
  virtual void DefaultCloseOk();
  virtual void DefaultCloseCancel();

  DialogResponse GetResponse() const { return response; }

  /// The only child; it follows the dialog's size and lasts as long as the dialog.
  const boost::intrusive_ptr<OS_View>& GetRootView() const { return rootView; }

  void SetOkButton(const boost::intrusive_ptr<controls::UI_Button>& button);
  void SetCancelButton(const boost::intrusive_ptr<controls::UI_Button>& button);
  void SetInitialFocus(const boost::intrusive_ptr<UI_Node>& node);
  const boost::intrusive_ptr<controls::UI_Button>& GetOkButton() const { return okButton; }
  const boost::intrusive_ptr<controls::UI_Button>& GetCancelButton() const { return cancelButton; }
  const boost::intrusive_ptr<UI_Node>& GetInitialFocus() const { return initialFocus; }

  /// Leaves the place to the platform.
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
