#include "studio/window/png_size_dialog.h"

#include <QSize>
#include <algorithm>
#include <array>
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
constexpr int kLeastWidth = 400;  // so that the summary has room in three lines

struct FieldTexts {
  const char* id;
  const char* caption;
  const char* help;
};

constexpr size_t kFieldCount = 3;
constexpr FieldTexts kFieldTexts[kFieldCount] = {
    {"pngWidth", "$$$/Studio/Png/Width=&Width in pixels:",
     "$$$/Studio/Png/WidthHelp=The width of the picture."},
    {"pngHeight", "$$$/Studio/Png/Height=&Height in pixels:",
     "$$$/Studio/Png/HeightHelp=The height of the picture."},
    {"pngResolution", "$$$/Studio/Png/Resolution=&Resolution in dpi:",
     "$$$/Studio/Png/ResolutionHelp=Pixels per inch of the artboard."},
};
using FieldValues = std::array<double, kFieldCount>;

template <class Control>
boost::intrusive_ptr<Control> Add(UI_Node& parent, const char* id, const char* caption) {
  boost::intrusive_ptr<Control> control = new Control;
  control->UI_SetNodeID(id);
  control->SetCaption(ToToolkit(caption ? Text(caption) : QString()));
  parent.ChildPushBack(control);
  return control;
}

/// A dialog of the toolkit, so that its fields read numbers and report problems like those of
/// "Create Tesserae". A number in one field sets the scale, which sets the other fields.
class PngSizeDialog final : public UI_Dialog, public qtui::DialogListener {
 public:
  /// Adds the controls, which the constructor cannot: it must not take references to the dialog.
  static boost::intrusive_ptr<PngSizeDialog> Make(const MosaicGeometry& geometry);

  double PixelsPerPoint() const { return scale; }

  /// Explains the effect of the size on the tiles, also while a number is being typed.
  std::optional<qtui::Summary> DialogChanged(
      const UI_Dialog&, const std::optional<qtui::PendingEntry>& pending) override;

 private:
  explicit PngSizeDialog(const MosaicGeometry& geometry);

  void AddFields(UI_Node& column);
  void AddButtons(UI_Node& column);
  void SetScale(double pixelsPerPoint);
  FieldValues ValuesFor(double pixelsPerPoint) const;
  double ScaleFor(size_t field, double number) const;

  const MosaicGeometry geometry;
  const double proposed;
  double scale = 0;
  std::array<boost::intrusive_ptr<UI_NumberEdit>, kFieldCount> fields;
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
  dialog->SetMinimumSize({kLeastWidth, 0});
  const boost::intrusive_ptr<UI_Panel> column = new UI_Panel;
  dialog->GetRootView()->ChildPushBack(column);
  dialog->AddFields(*column);
  dialog->AddButtons(*column);
  dialog->SetScale(dialog->proposed);
  return dialog;
}

void PngSizeDialog::AddFields(UI_Node& column) {
  const boost::intrusive_ptr<UI_Panel> grid = new UI_Panel;
  grid->SetArrangement(PanelArrangement::kGrid);
  grid->SetColumnCount(2);
  column.ChildPushBack(grid);
  const FieldValues most = ValuesFor(MostPngScale(geometry.size));
  for (size_t i = 0; i < kFieldCount; ++i) {
    const auto& [id, caption, help] = kFieldTexts[i];
    Add<UI_StaticText>(*grid, "", caption)->SetBuddy(id);
    fields[i] = Add<UI_NumberEdit>(*grid, id, nullptr);
    fields[i]->SetHelp(help);
    fields[i]->SetLowerBound(1);
    fields[i]->SetUpperBound(most[i]);
    fields[i]->NotifyWhenChanged(boost::make_shared<ChangeNotifyFunction>(
        [this, i](MessageT<UI_Node>*) { SetScale(ScaleFor(i, fields[i]->GetNumber())); }));
  }
}

void PngSizeDialog::AddButtons(UI_Node& column) {
  const boost::intrusive_ptr<UI_Panel> row = new UI_Panel;
  row->SetArrangement(PanelArrangement::kRow);
  column.ChildPushBack(row);
  row->ChildPushBack(boost::intrusive_ptr<UI_Panel>(new UI_Panel));  // moves the buttons to the end
  SetCancelButton(Add<UI_Button>(*row, "cancelButton", "$$$/Studio/Box/Cancel=Cancel"));
  SetOkButton(Add<UI_Button>(*row, "okButton", "$$$/Studio/Box/OK=OK"));
}

FieldValues PngSizeDialog::ValuesFor(double pixelsPerPoint) const {
  const QSize pixels = PngPixels(geometry.size, pixelsPerPoint);
  const double resolution = std::round(pixelsPerPoint * kPointsPerInch * 100) / 100;
  return {double(pixels.width()), double(pixels.height()), resolution};
}

double PngSizeDialog::ScaleFor(size_t field, double number) const {
  // The fields show rounded numbers, which would lead to another scale.
  if (number == ValuesFor(proposed)[field]) return proposed;
  const double perScale[] = {geometry.size.width(), geometry.size.height(), kPointsPerInch};
  return std::min(number / perScale[field], MostPngScale(geometry.size));
}

void PngSizeDialog::SetScale(double pixelsPerPoint) {
  scale = pixelsPerPoint;
  const FieldValues values = ValuesFor(scale);
  for (size_t i = 0; i < kFieldCount; ++i) fields[i]->SetNumber(values[i]);
}

std::optional<qtui::Summary> PngSizeDialog::DialogChanged(
    const UI_Dialog&, const std::optional<qtui::PendingEntry>& pending) {
  double shown = scale;
  for (size_t i = 0; pending && i < kFieldCount; ++i) {
    if (pending->field == fields[i].get()) shown = ScaleFor(i, pending->number);
  }
  const double pitch = (geometry.tile.width() + geometry.spacing.width()) * shown;
  const bool isSharp = std::abs(pitch - std::round(pitch)) < 1e-6;
  const QString pixels = NumberForUser(pitch, 2);
  QString text;
  if (shown == proposed && isSharp) {
    text = PluralText(
        "$$$/Studio/Png/Proposed=Proposed: %1 pixel from tile to tile, a whole number, so that "
        "edges are sharp.",
        "Proposed: %1 pixels from tile to tile, a whole number, so that edges are sharp.",
        uint64_t(std::round(pitch)), pixels);
  } else if (shown == proposed) {
    text = Text(
        "$$$/Studio/Png/ProposedLimited=Proposed: %1 pixels from tile to tile, the most that fit "
        "in a picture of usual size.",
        pixels);
  } else if (isSharp) {
    text = PluralText("$$$/Studio/Png/Sharp=%1 pixel from tile to tile: sharp edges.",
                      "%1 pixels from tile to tile: sharp edges.", uint64_t(std::round(pitch)),
                      pixels);
  } else {
    text = Text(
        "$$$/Studio/Png/Blended=%1 pixels from tile to tile: pixels on an edge mix the colours of "
        "both sides.",
        pixels);
  }
  return qtui::Summary{text, false};
}

}  // namespace

std::optional<double> AskForPngScale(QWidget& window, const MosaicGeometry& geometry) {
  const auto dialog = PngSizeDialog::Make(geometry);
  qtui::QtPresenter presenter(&window);
  presenter.AddListener(*dialog);
  const InstalledPresenter installed(presenter);
  dialog->RunModal();
  return dialog->GetResponse() == kOkResponse ? std::optional(dialog->PixelsPerPoint())
                                              : std::nullopt;
}
