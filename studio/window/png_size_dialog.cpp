#include "studio/window/png_size_dialog.h"

#include <QSize>
#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>
#include <cmath>

#include "platform/nrvui/ui_dialog.h"
#include "platform/nrvui/ui_edits.h"
#include "platform/qt/qt_presenter.h"
#include "studio/base/text.h"
#include "studio/export/mosaic_export.h"

using namespace nrvui::controls;
using namespace nrvui::ui;

namespace {

constexpr double kPointsPerInch = 72;

/// A dialog of the toolkit, so that its fields read numbers and report problems as those of "Create
/// Tesserae" do.
class PngSizeDialog final : public UI_Dialog, public qtui::DialogListener {
 public:
  /// Builds the content, which the constructor cannot: it takes references to the dialog.
  static boost::intrusive_ptr<PngSizeDialog> Make(const MosaicGeometry& geometry);

  double PixelsPerPoint() const { return scale; }

  /// Explains what the size means for the tiles, also while it is being typed.
  std::optional<qtui::Summary> DialogChanged(
      const UI_Dialog&, const std::optional<qtui::PendingEntry>& pending) override;

 private:
  explicit PngSizeDialog(const MosaicGeometry& geometry);

  template <class Control>
  boost::intrusive_ptr<Control> Add(UI_Node& parent, const char* id, const char* caption);
  boost::intrusive_ptr<UI_NumberEdit> AddField(UI_Node& parent, const char* id, const char* caption,
                                               const char* help, double perPoint);
  void AddButtons(UI_Node& column);
  void SetScale(double pixelsPerPoint);
  /// What the field shows for a scale of 1.
  double PerPoint(const UI_NumberEdit& field) const;

  const MosaicGeometry geometry;
  const double proposed;
  double scale = 0;
  boost::intrusive_ptr<UI_NumberEdit> width, height, resolution;
};

PngSizeDialog::PngSizeDialog(const MosaicGeometry& mosaicGeometry)
    : UI_Dialog(nullptr, ToToolkit(Text("$$$/Studio/Png/Title=PNG Picture")), {}, {}, false,
                nullptr, true, false, true, true, 0, 1),
      geometry(mosaicGeometry),
      proposed(PngScale(mosaicGeometry)) {}

boost::intrusive_ptr<PngSizeDialog> PngSizeDialog::Make(const MosaicGeometry& geometry) {
  boost::intrusive_ptr<PngSizeDialog> dialog = new PngSizeDialog(geometry);
  dialog->UI_SetNodeID("pngSize");
  dialog->Position();
  const boost::intrusive_ptr<UI_Panel> column = new UI_Panel, grid = new UI_Panel;
  dialog->GetRootView()->ChildPushBack(column);
  column->ChildPushBack(grid);
  grid->SetArrangement(PanelArrangement::kGrid);
  grid->SetColumnCount(2);
  dialog->width = dialog->AddField(*grid, "pngWidth", "$$$/Studio/Png/Width=&Width in pixels:",
                                   "$$$/Studio/Png/WidthHelp=How wide the picture becomes.",
                                   geometry.size.width());
  dialog->height = dialog->AddField(*grid, "pngHeight", "$$$/Studio/Png/Height=&Height in pixels:",
                                    "$$$/Studio/Png/HeightHelp=How high the picture becomes.",
                                    geometry.size.height());
  dialog->resolution = dialog->AddField(
      *grid, "pngResolution", "$$$/Studio/Png/Resolution=&Resolution in dpi:",
      "$$$/Studio/Png/ResolutionHelp=Pixels per inch on the page.", kPointsPerInch);
  dialog->AddButtons(*column);
  dialog->SetScale(dialog->proposed);
  return dialog;
}

template <class Control>
boost::intrusive_ptr<Control> PngSizeDialog::Add(UI_Node& parent, const char* id,
                                                 const char* caption) {
  boost::intrusive_ptr<Control> control = new Control;
  control->UI_SetNodeID(id);
  control->SetCaption(ToToolkit(caption ? Text(caption) : QString()));
  parent.ChildPushBack(control);
  return control;
}

boost::intrusive_ptr<UI_NumberEdit> PngSizeDialog::AddField(UI_Node& parent, const char* id,
                                                            const char* caption, const char* help,
                                                            double perPoint) {
  Add<UI_StaticText>(parent, "", caption)->SetBuddy(id);
  auto field = Add<UI_NumberEdit>(parent, id, nullptr);
  field->SetHelp(help);
  field->SetLowerBound(1);
  field->SetUpperBound(std::max(1.0, std::floor(perPoint * MostPngScale(geometry.size))));
  field->NotifyWhenChanged(boost::make_shared<ChangeNotifyFunction>(
      [this, &number = *field, perPoint](MessageT<UI_Node>*) {
        SetScale(number.GetNumber() / perPoint);
      }));
  return field;
}

void PngSizeDialog::AddButtons(UI_Node& column) {
  const boost::intrusive_ptr<UI_Panel> row = new UI_Panel;
  row->SetArrangement(PanelArrangement::kRow);
  column.ChildPushBack(row);
  row->ChildPushBack(boost::intrusive_ptr<UI_Panel>(new UI_Panel));  // the buttons stand at the end
  SetCancelButton(Add<UI_Button>(*row, "cancelButton", "$$$/Studio/Box/Cancel=Cancel"));
  SetOkButton(Add<UI_Button>(*row, "okButton", "$$$/Studio/Box/OK=OK"));
}

void PngSizeDialog::SetScale(double pixelsPerPoint) {
  scale = pixelsPerPoint;
  const QSize pixels = PngPixels(geometry.size, scale);
  width->SetNumber(pixels.width());
  height->SetNumber(pixels.height());
  resolution->SetNumber(std::round(scale * kPointsPerInch * 100) / 100);
}

double PngSizeDialog::PerPoint(const UI_NumberEdit& field) const {
  if (&field == width.get()) return geometry.size.width();
  return &field == height.get() ? geometry.size.height() : kPointsPerInch;
}

std::optional<qtui::Summary> PngSizeDialog::DialogChanged(
    const UI_Dialog&, const std::optional<qtui::PendingEntry>& pending) {
  const double shown = pending ? pending->number / PerPoint(*pending->field) : scale;
  const double pitch = (geometry.tile.width() + geometry.spacing.width()) * shown;
  const bool isSharp = std::abs(pitch - std::round(pitch)) < 1e-6;
  const QString pixels = NumberForUser(std::round(pitch * 100) / 100);
  QString text;
  if (shown == proposed && isSharp) {
    text = Text(
        "$$$/Studio/Png/Proposed=Proposed: %1 pixels from tile to tile, a whole number, so that "
        "edges are sharp.",
        pixels);
  } else if (shown == proposed) {
    text = Text(
        "$$$/Studio/Png/ProposedLimited=Proposed: %1 pixels from tile to tile, as many as fit in a "
        "picture of usual size.",
        pixels);
  } else if (isSharp) {
    text = Text("$$$/Studio/Png/Sharp=%1 pixels from tile to tile: sharp edges.", pixels);
  } else {
    text = Text(
        "$$$/Studio/Png/Blended=%1 pixels from tile to tile: pixels on an edge mix the colours "
        "beside it.",
        pixels);
  }
  return qtui::Summary{text, false};
}

}  // namespace

std::optional<double> AskForPngScale(const MosaicGeometry& geometry) {
  const auto dialog = PngSizeDialog::Make(geometry);
  qtui::QtPresenter presenter;
  presenter.AddListener(*dialog);
  const InstalledPresenter installed(presenter);
  dialog->RunModal();
  return dialog->GetResponse() == kOkResponse ? std::optional(dialog->PixelsPerPoint())
                                              : std::nullopt;
}
