#include "studio/console/console_run.h"

#include <QGuiApplication>
#include <QRandomGenerator>
#include <QSocketNotifier>
#include <algorithm>
#include <utility>

#include "platform/nrvui/scripted_presenter.h"
#include "platform/qt/qt_presenter.h"
#include "platform/standin/user_interface.h"
#include "studio/base/studio_error.h"
#include "studio/caller/dialog_summary.h"
#include "studio/caller/mosaic_caller.h"
#include "studio/console/terminal.h"
#include "studio/drawing/image_source.h"
#include "studio/export/mosaic_export.h"
#include "studio/mosaic/mosaic_job.h"
#include "studio/mosaic/preview.h"
#include "studio/window/live_preview.h"

namespace {

using Windows = CommandLine::Windows;

constexpr int kDone = 0;
constexpr int kCancelled = 1;

using Report = std::function<void(const std::string&)>;

/// Enters the kept entries when a dialog opens, keeps those that it ends with, and updates the
/// preview and the summary.
class AskListener final : public qtui::DialogListener {
 public:
  /// `previewWindow` may be null; `report` may be empty.
  AskListener(const Picture& shown, const MosaicChoices& askedChoices, PreviewWindow* previewWindow,
              DialogEntries& keptEntries, Report reportFunction)
      : picture(shown),
        asked(askedChoices),
        window(previewWindow),
        entries(keptEntries),
        report(std::move(reportFunction)) {}

  void DialogOpening(nrvui::ui::UI_Dialog& dialog) override {
    const QString changes = EnterAgain(dialog, entries);
    if (report && !changes.isEmpty()) report(changes.toStdString());
  }
  std::optional<qtui::Summary> DialogChanged(
      const nrvui::ui::UI_Dialog& dialog,
      const std::optional<qtui::PendingEntry>& pending) override {
    entries = EntriesIn(dialog);
    const Forecast forecast = ForecastFor(entries, asked, pending);
    if (window != nullptr) window->Sync(forecast.choices);
    return SummaryFor(picture, forecast);
  }

 private:
  const Picture& picture;
  const MosaicChoices& asked;
  PreviewWindow* window;
  DialogEntries& entries;
  const Report report;
};

/// Plays a script on a dialog without a window.
class HiddenScript final : public nrvui::ui::DialogPresenter {
 public:
  HiddenScript(const nrvui::gestures::GestureScript& gestures, const Report& report,
               qtui::DialogListener& dialogListener)
      : script(gestures, report), listener(dialogListener) {}

  void Present(nrvui::ui::UI_Dialog& dialog) override {
    listener.DialogOpening(dialog);
    script.Present(dialog);
    listener.DialogChanged(dialog, {});
  }
  const std::optional<nrvcore::FileError>& Error() const { return script.Error(); }

 private:
  nrvui::gestures::ScriptedPresenter script;
  qtui::DialogListener& listener;
};

/// Without a display a preset confirms the dialog itself.
Windows ShownWindows(const CommandLine& line) {
  const Windows windows = line.ShownWindows();
  const bool isAnswered = !line.preset.isEmpty() && !HasDisplay();
  return windows == Windows::kStudio && isAnswered ? Windows::kNone : windows;
}

/// Rows of tiles for an estimate. Random colours need the most space.
QImage RandomTiles(int across) {
  constexpr int kRows = 16;
  QImage tiles(across, kRows, QImage::Format_ARGB32);
  QRandomGenerator random(1);
  for (int y = 0; y < kRows; ++y) {
    for (int x = 0; x < across; ++x) tiles.setPixel(x, y, random.generate() | 0xFF000000);
  }
  return tiles;
}

}  // namespace

bool HasDisplay() {
  return QGuiApplication::platformName() != "offscreen";
}

ConsoleRun::ConsoleRun(CommandLine commandLine, WindowCamera windowCamera)
    : line(std::move(commandLine)),
      windowCamera(std::move(windowCamera)),
      windows(ShownWindows(line)),
      choicesFile(line.state) {}

int ConsoleRun::Run() {
  const bool isEmptyWindow = line.picture.isEmpty() && line.dialogScreenshot.isEmpty();
  if (windows == Windows::kForScreenshots && isEmptyWindow) return TakeScreenshots();
  if (line.picture.isEmpty())
    throw StudioError("$$$/Studio/Line/WhichPicture=no picture is given; see --help");
  for (const QString& path : line.exports) CheckExport(path);
  LoadChoices();
  Open();
  if (windows == Windows::kForScreenshots) return TakeScreenshots();

  ReadGestures();
  OpenOutputs();
  QByteArrayList records;
  for (const ArtworkPtr& next : artworks) {
    artwork = next;
    MosaicChoices choices;
    if (!AskUntilUsable(choices)) {
      Tell(Text("$$$/Studio/Line/Cancelled=The dialog was cancelled."));
      return line.isFromInkscape && !interruption->IsRequested() ? kDone : kCancelled;
    }
    kept.AddMosaic(choices, entries);
    made.emplace_back(choices, entries);
    records << RecordJson(choices);
    Tell(records.last().trimmed());
    if (!Build(choices)) break;
  }
  if (interruption->IsRequested() || !ExportDrawing()) {
    Tell(Text("$$$/Studio/Line/Stopped=The mosaic was cancelled."));
    return kCancelled;
  }
  if (recordDevice) {
    const bool isOne = records.size() == 1;
    WriteAll(*recordDevice, isOne ? records.front() : "[\n" + records.join(",\n") + "]\n");
  }
  SaveScreenshots();
  KeepChoices();
  if (line.isFromInkscape) {
    if (interruption->IsRequested()) return kCancelled;
    ExitOnSignals(kCancelled);
    PrintBytes(inkscapeDocument.data());
  }
  ExitOnSignals(kDone);
  TellOfFiles();
  return kDone;
}

void ConsoleRun::LoadChoices() {
  try {
    kept = choicesFile.Load();
  } catch (const StudioError& error) {
    if (choicesFile.IsNamed() || !line.preset.isEmpty()) throw;
    canKeepChoices = false;
    Warn(Text("$$$/Studio/Line/NothingKept=%1; the file is left unchanged", QString(error.what())));
  }
  if (!line.preset.isEmpty()) preset = kept.Preset(line.preset);
}

void ConsoleRun::ReadGestures() {
  using nrvui::gestures::GestureScript;
  if (!line.gestures.isEmpty()) {
    gestures = GestureScript::ReadFile(SystemPath(line.gestures));
  } else if (!line.preset.isEmpty()) {
    gestures = GestureScript::Parse("key Return", line.preset.toStdString());
  }
}

void ConsoleRun::CheckExport(const QString& path) const {
  if (!line.UsesDrawing()) {
    ExportKindOf(path);
  } else if (FindExportKind(path) != FindExportKind(".svg")) {
    throw StudioError(
        "$$$/Studio/Line/DrawingEnding=cannot export the drawing to %1: the name must end in .svg",
        path);
  }
}

/// Reads the picture, or the images of the drawing.
void ConsoleRun::Open() {
  outputs.Protect(line.picture);
  if (line.UsesDrawing()) {
    drawing = std::make_shared<const SvgDrawing>(SvgDrawing::Read(line.picture));
    for (const ImageElement* image : ChosenImages()) {
      placed.push_back(PlacedImage::Read(drawing, *image, line.isSizeUnknown));
      artworks.push_back(placed.back().artwork);
      if (const QString file = LinkedFile(*drawing, *image); !file.isEmpty()) outputs.Protect(file);
    }
  } else {
    Picture picture = Picture::Open(PictureFile(line.picture));
    if (!line.windowScreenshot.isEmpty()) MakeShowable(picture);
    artworks = {Place(line.picture, std::move(picture), line.isSizeUnknown)};
  }
  artwork = artworks.front();
}

/// The drawing's images that become mosaics, at least one.
std::vector<const ImageElement*> ConsoleRun::ChosenImages() const {
  std::vector<const ImageElement*> images;
  for (const QString& id : line.images) images.push_back(&drawing->Image(id));
  if (!line.isFromInkscape) return images;
  if (line.selected.isEmpty())
    throw StudioError("$$$/Studio/Inkscape/NothingSelected=select a picture first");
  images = drawing->ImagesIn(line.selected);
  if (images.empty()) {
    throw StudioError(
        "$$$/Studio/Inkscape/NoPicture=the selection has no picture; mosaics are made of pictures, "
        "such as imported photographs");
  }
  return images;
}

/// Cancels the dialog and closes the window after their screenshots.
int ConsoleRun::TakeScreenshots() {
  interruption.emplace();
  OpenScreenshots();
  MosaicChoices choices;
  entries = preset;
  gestures.emplace();  // an empty script, after which the dialog is cancelled
  if (dialogScreenshotDevice) Ask(choices);
  SaveScreenshots();
  if (interruption->IsRequested()) return kCancelled;
  outputs.Commit();
  ExitOnSignals(kDone);
  TellOfFiles();
  return kDone;
}

/// Called before the dialog opens, so that a file that cannot be written is reported early.
void ConsoleRun::OpenOutputs() {
  interruption.emplace();
  outputs.Protect(line.gestures);
  for (const QString& path : line.exports) exportDevices.push_back(&outputs.Add(path));
  if (line.isFromInkscape) {
    inkscapeDocument.open(QIODevice::WriteOnly);
    exportDevices = {&inkscapeDocument};
  }
  recordDevice = OpenOutput(line.record);
  stateDevice = OpenOutput(line.state);
  OpenScreenshots();
}

void ConsoleRun::OpenScreenshots() {
  dialogScreenshotDevice = OpenOutput(line.dialogScreenshot);
  windowScreenshotDevice = OpenOutput(line.windowScreenshot);
}

QIODevice* ConsoleRun::OpenOutput(const QString& name) {
  return name.isEmpty() ? nullptr : &outputs.Add(name);
}

bool ConsoleRun::AskUntilUsable(MosaicChoices& choices) {
  entries = preset;
  while (Ask(choices)) {
    try {
      MosaicGeometry::From(choices, artwork->picture.SizeInPoints());
      return true;
    } catch (const ChoiceError&) {
      if (gestures) return true;  // the build reports it
    }
  }
  return false;
}

bool ConsoleRun::Ask(MosaicChoices& choices) {
  if (!gestures && !HasDisplay()) {
    throw StudioError(
        "$$$/Studio/Line/NeedsGestures=without a display the dialog needs --gestures FILE or "
        "--preset NAME");
  }
  choices = ChoicesFor(*artwork, kept.last);
  const QSocketNotifier notifier(interruption->Descriptor(), QSocketNotifier::Read);
  QObject::connect(&notifier, &QSocketNotifier::activated, [] { QCoreApplication::exit(); });
  const bool isScripted = windows == Windows::kNone || windows == Windows::kScripted;
  const Report report = isScripted ? Reporter() : Report();
  if (windows == Windows::kNone) {
    AskListener listener(artwork->picture, choices, nullptr, entries, report);
    HiddenScript script(*gestures, report, listener);
    return CallDialog(choices, script);
  }
  qtui::QtPresenter presenter;
  std::optional<PreviewWindow> window;
  if (drawing && windows == Windows::kDialogs) window.emplace(artwork, choices, presenter);
  AskListener listener(artwork->picture, choices, window ? &*window : nullptr, entries, report);
  presenter.AddListener(listener);
  if (gestures) presenter.PlayScript(*gestures, report);
  if (dialogScreenshotDevice) presenter.TakeScreenshots();
  const bool isOk = CallDialog(choices, presenter);
  if (dialogScreenshotDevice) dialogScreenshot = presenter.Screenshot();
  return isOk;
}

/// Returns whether OK ended the dialog. Throws StudioError for a gesture that could not be played.
template <typename Presenter>
bool ConsoleRun::CallDialog(MosaicChoices& choices, Presenter& presenter) {
  const nrvui::ui::InstalledPresenter installed(presenter);
  standin::RecordingUserInterface screen;
  MosaicCaller caller(screen);
  const bool isOk = caller.Ask(choices.params, choices.state);
  caller.Close();
  if (interruption->IsRequested()) return false;
  if (const auto& problem = presenter.Error()) throw StudioError(QString(problem->what()));
  return isOk;
}

bool ConsoleRun::Build(const MosaicChoices& choices) {
  try {
    return RunJob(choices);
  } catch (const StudioError&) {
    if (interruption->IsRequested()) return false;
    throw;
  }
}

/// Keeps the picture's pixels in memory only if the picture shows in the result.
bool ConsoleRun::RunJob(const MosaicChoices& choices) {
  if (MosaicJob(artwork->picture, choices).ShowsPicture() && artwork->picture.Pixels().isNull()) {
    Picture picture = artwork->picture;
    MakeShowable(picture, [this] { return interruption->IsRequested(); });
    artwork = Place(line.picture, std::move(picture), line.isSizeUnknown);
  }
  MosaicJob job(artwork->picture, choices);
  const MosaicGeometry& geometry = job.Geometry();
  for (size_t i = 0; !drawing && i < exportDevices.size(); ++i) {
    const ExportKind& kind = ExportKindOf(line.exports[int(i)]);
    TellIfLarge(line.exports[int(i)],
                EstimatedBytes({geometry, RandomTiles(geometry.tilesAcross), job.Below()}, kind));
    job.Add(kind.makeSink(*exportDevices[i], geometry, job.Below(), 0));
  }
  const bool isShown = drawing || windowScreenshotDevice;
  Mosaic mosaic;
  if (isShown) job.Add(mosaic);
  ProgressLine progress(!line.isQuiet);
  const bool isComplete = job.Run([&](int rowsDone) {
    progress.Show(rowsDone, geometry.tilesDown);
    return !interruption->IsRequested();
  });
  if (!isComplete || interruption->IsRequested()) return false;
  const uint64_t count = uint64_t(geometry.tilesAcross) * geometry.tilesDown;
  Tell(PluralText("$$$/Studio/Line/Built=Built %1 tile, %2 across and %3 down.",
                  "Built %1 tiles, %2 across and %3 down.", count, NumberForUser(double(count)),
                  NumberForUser(geometry.tilesAcross), NumberForUser(geometry.tilesDown)));
  if (!isShown) return true;
  artwork = WithMosaic(*artwork, std::move(mosaic));
  if (drawing) {
    const auto& [from, image, placement, before] = placed[mosaics.size()];
    mosaics.push_back({image, placement, artwork->mosaic});
  }
  return true;
}

/// Returns false if it was interrupted.
bool ConsoleRun::ExportDrawing() {
  const auto goOn = [this](int) { return !interruption->IsRequested(); };
  if (!drawing) return true;
  for (const QString& path : line.exports) TellIfLarge(path, EstimatedBytes(*drawing, mosaics));
  return std::all_of(exportDevices.begin(), exportDevices.end(), [&](QIODevice* device) {
    return WriteDrawing(*drawing, mosaics, *device, goOn);
  });
}

void ConsoleRun::SaveScreenshots() {
  if (dialogScreenshotDevice)
    WriteAll(*dialogScreenshotDevice, EncodePicture(dialogScreenshot, "png"));
  if (windowScreenshotDevice)
    WriteAll(*windowScreenshotDevice, EncodePicture(windowCamera(artwork), "png"));
}

/// Places all outputs, which include a file of choices that the user named. A failure to keep the
/// choices elsewhere is only a warning, because the mosaic is finished.
void ConsoleRun::KeepChoices() {
  if (stateDevice) WriteAll(*stateDevice, ToJson(kept));
  outputs.Commit();
  if (stateDevice || !canKeepChoices) return;
  try {
    choicesFile.Change([this](KeptChoices& stored) {
      for (const auto& [choices, entered] : made) stored.AddMosaic(choices, entered);
    });
  } catch (const StudioError& error) {
    Warn(Text("$$$/Studio/Line/ChoicesNotKept=the choices cannot be saved: %1",
              QString(error.what())));
  }
}

void ConsoleRun::Tell(const QString& text) const {
  if (!line.isQuiet) Print(text + '\n');
}

void ConsoleRun::TellIfLarge(const QString& path, double bytes) const {
  if (bytes < kLargeExport) return;
  Warn(
      Text("$$$/Studio/Line/LargeExport=%1 will be about %2 GB; other programs may not be able to "
           "open it",
           path, NumberForUser(bytes / 1e9, 1)));
}

/// A failure to print is only a warning, because the files are complete.
void ConsoleRun::TellOfFiles() const {
  QStringList paths = line.exports + line.Screenshots();
  if (!line.record.isEmpty()) paths << line.record;
  try {
    for (const QString& path : paths) Tell(OnOneLine(Text("$$$/Studio/Line/Wrote=Wrote %1", path)));
  } catch (const StudioError& error) {
    Warn(error.what());
  }
}

std::function<void(const std::string&)> ConsoleRun::Reporter() const {
  return [this](const std::string& text) { Warn(QString::fromStdString(text)); };
}

void ConsoleRun::Warn(const QString& text) const {
  if (!line.isQuiet) PrintError(text);
}
