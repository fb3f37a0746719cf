#include "dialog/vxui_base_dialog.h"

#include <algorithm>
#include <boost/any.hpp>
#include <boost/bind/bind.hpp>
#include <boost/smart_ptr/make_shared.hpp>
#include <string>

#include "host/suite_access.h"
#include "platform/nrvcore/unicode.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_node_manager.h"
#include "platform/nrvui/ui_views.h"
#include "platform/vxui/host_interfaces.h"

using boost::placeholders::_1;
using nrvui::controls::UI_Button;
using nrvui::ui::UI_Node;

namespace {

// The content size until the layout is loaded.
constexpr nrvcore::geom::PointT<float> kInitialContentSize = {100.0f, 100.0f};
constexpr uint32_t kDialogFlags = 1;

/// A Boolean platform setting, or `defaultValue` if it is not set. Throws boost::bad_any_cast if
/// the setting is not a Boolean.
bool GetCustomSetting(const nrvui::ui::CustomSettingsManager& manager, const char* key,
                      bool defaultValue) {
  const auto& settings = manager.GetSettings();
  const auto setting = settings.find(std::string(key));
  return setting == settings.end() ? defaultValue : boost::any_cast<bool>(setting->second);
}

const nrvui::drawbot::SupplierInterface* GetDrawingSupplier() {
  DrawingSupplierSource* source = nullptr;
  {
    const ScopedSuite<VXUserInterfaceMainSuite> main;
    if (main) (void)main->GetDrawingSupplierSource(&source);
  }
  return source ? source->GetDrawingSupplier() : nullptr;
}

SheetFactory* GetSheetFactory() {
  SheetFactory* factory = nullptr;
  const ScopedSuite<VXUserInterfaceMainSuite> main;
  if (main) (void)main->GetSheetFactory(&factory);
  return factory;
}

void SwapPlaces(UI_Node& one, UI_Node& other) {
  nrvui::ui::UI_Container* parent = one.UI_GetParentContainer();
  if (!parent || parent != other.UI_GetParentContainer()) return;
  parent->ChildSwapOrder(one.UI_GetIndex(), other.UI_GetIndex());
}

}  // namespace

template <class T>
VXUIBaseDialog<T>::VXUIBaseDialog(PluginRef plugin, const nrvcore::String& nodeID,
                                  const nrvcore::UTF16String& title, uint32_t resourceID,
                                  bool positionDialog, NSWindow* platformWindow, bool centerDialog,
                                  uint32_t styleValue, bool modalContext, const char* theme,
                                  bool attachSheetView, Size dialogPoint)
    : T(GetDrawingSupplier(), title, dialogPoint, kInitialContentSize, false, platformWindow,
        centerDialog, false, true, true, styleValue, kDialogFlags),
      pluginRef(plugin),
      modalContextFlag(modalContext),
      themeName(theme) {
  SetUpSheet(nodeID, resourceID, positionDialog, centerDialog, attachSheetView);
  this->sheet = AcquireSheet();
}

template <class T>
void VXUIBaseDialog<T>::SetUpSheet(const nrvcore::String& nodeID, uint32_t resourceID,
                                   bool positionDialog, bool centerDialog, bool attachSheetView) {
  this->UI_SetNodeID(nodeID);
  SheetFactory* factory = GetSheetFactory();
  if (!factory) return;

  sheetHolder = factory->CreateSheetHolder(pluginRef, resourceID, VXUIBaseDialog::GetThemeName());
  const boost::intrusive_ptr<UI_Node> sheetView =
      sheetHolder ? sheetHolder->GetSheetView() : nullptr;
  if (sheetView) SetUpLayout(sheetView, attachSheetView);
  Place(positionDialog, centerDialog);
  factory->RegisterDialogView(this->GetRootView().get());
}

template <class T>
void VXUIBaseDialog<T>::SetUpLayout(const boost::intrusive_ptr<Node>& sheetView,
                                    bool attachSheetView) {
  this->SetInitialFocus(sheetHolder->GetInitialFocus());
  sheetHolder->SetMessageCallback(
      boost::make_shared<boost::function<void(const vx::UnicodeString&)>>(
          boost::bind(&VXUIBaseDialog::OnSheetMessage, this, _1)));
  SetUpMnemonics(*sheetView);
  SetSize(ContentSizeFor(sheetView->UI_GetLocalRectF()));
  if (const auto layout = sheetHolder->GetLayoutNode()) {
    layout->UI_InstallSizeChangedNotifyFunction(boost::make_shared<boost::function<void()>>(
        boost::bind(&VXUIBaseDialog::OnSheetSizeChanged, this)));
  }
  if (attachSheetView) this->GetRootView()->ChildPushBack(sheetView);
  BindButtons();
  sheetView->UI_Show(true);
}

template <class T>
void VXUIBaseDialog<T>::SetUpMnemonics(Node& sheetView) {
  auto* view = dynamic_cast<nrvui::ui::UI_SubView*>(&sheetView);
  if (!view) return;
  const auto& settings = nrvui::ui::UI_NodeManager::Get().GetCustomSettingsManager();
  view->UI_TurnMnemonicsOnOffForAllChildren(
      GetCustomSetting(settings, "windows.MnemonicsAlwaysOn", false));
}

template <class T>
void VXUIBaseDialog<T>::BindButtons() {
  const auto findButton = [this](const char* nodeID) {
    return boost::dynamic_pointer_cast<UI_Button>(FindNodeByID(nodeID));
  };
  const boost::intrusive_ptr<UI_Button> okButton = findButton("okButton");
  if (okButton) this->SetOkButton(okButton);

  boost::intrusive_ptr<UI_Button> cancelButton = findButton("cancelButton");
  if (cancelButton) {
    this->SetCancelButton(cancelButton);
  } else {
    // Takes Cancel's place in the button order. Not registered, because it may reset instead.
    cancelButton = findButton("cancel_ResetButton");
  }
  // Layouts list OK first; users see it last.
  if (okButton && cancelButton) SwapPlaces(*okButton, *cancelButton);
}

template <class T>
void VXUIBaseDialog<T>::Place(bool positionDialog, bool centerDialog) {
  if (positionDialog) {
    this->Position();
  } else if (centerDialog) {
    this->Center();
  }
}

template <class T>
void VXUIBaseDialog<T>::SetSize(Size size) {
  this->SetMinimumSize(size);
  this->SetContentSize(size);
}

template <class T>
auto VXUIBaseDialog<T>::ContentSizeFor(const Rect& rect) const -> Size {
  return {std::max(minimumContentSize.x, rect.right), std::max(minimumContentSize.y, rect.bottom)};
}

template <class T>
boost::shared_ptr<VXUICairnSheet> VXUIBaseDialog<T>::AcquireSheet() const {
  return sheetHolder ? sheetHolder->GetSheet() : nullptr;
}

template <class T>
void VXUIBaseDialog<T>::OnSheetSizeChanged() {
  if (!sheetHolder) return;
  const auto layout = sheetHolder->GetLayoutNode();
  if (!layout) return;
  const Rect layoutRect = layout->UI_GetLocalRectF();
  const Rect dialogRect = this->UI_GetLocalRectF();
  const auto sheetView = sheetHolder->GetSheetView();
  if (!sheetView) return;
  sheetView->UI_SetLocalRectF(layoutRect);
  const Size size = ContentSizeFor(layoutRect);
  if (size.x != dialogRect.right || size.y != dialogRect.bottom) SetSize(size);
}

template <class T>
void VXUIBaseDialog<T>::UI_ContentRectChanged(const Rect& rect) {
  this->GetRootView()->UI_SetLocalRectF(rect);
  if (!sheetHolder) return;
  // The toolkit keeps sizes between 0 and a million points.
  sheetHolder->ResizeSheet(static_cast<int32_t>(rect.right), static_cast<int32_t>(rect.bottom));
}

template <class T>
void VXUIBaseDialog<T>::RunModal() {
  const vx::ui::ModalContext context(modalContextFlag);
  T::RunModal();
}

template <class T>
nrvcore::UTF16String VXUIBaseDialog<T>::GetThemeName() const {
  return themeName ? nrvcore::utility::AsciiToUTF16(themeName) : nrvui::ui::GetDefaultThemeName();
}

template <class T>
void VXUIBaseDialog<T>::OnSheetMessage(const vx::UnicodeString&) {}

template <class T>
boost::intrusive_ptr<UI_Node> VXUIBaseDialog<T>::FindNodeByID(const nrvcore::String& nodeID) const {
  return ::FindNodeByID(*this->GetRootView(), nodeID);
}

template class VXUIBaseDialog<nrvui::ui::UI_Dialog>;
template class VXUIBaseDialog<vx::ui::UI_PopupModalDialog>;
template class VXUIBaseDialog<vx::ui::UI_FloatingDialog>;
