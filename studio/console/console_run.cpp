#include "studio/console/console_run.h"

#include <QGuiApplication>
#include <QSocketNotifier>
#include <algorithm>
#include <utility>

#include "platform/nrvui/scripted_presenter.h"
#include "platform/qt/qt_presenter.h"
#include "platform/standin/user_interface.h"
#include "studio/base/file_name.h"
#include "studio/base/output.h"
#include "studio/base/studio_error.h"
#include "studio/caller/dialog_choices.h"
#include "studio/caller/mosaic_caller.h"
#include "studio/caller/outlook.h"
#include "studio/console/terminal.h"
#include "studio/drawing/image_source.h"
#include "studio/export/mosaic_export.h"
#include "studio/export/picture_encoding.h"
#include "studio/mosaic/mosaic_job.h"
#include "studio/mosaic/preview.h"
#include "studio/window/picture_window.h"

namespace {

constexpr int kDone = 0;
constexpr int kCancelled = 1;

/// Answers the dialogs that open while this lives, as the command line has it: plays a gesture
/// file, with a window or without, or shows a window to a person, or only for its screenshot.
struct DialogUser {
  using Gestures = std::optional<nrvui::gestures::GestureScript>;

  /// `report` receives the messages of the script. Throws StudioError if a user must operate the
  /// dialog and no display is available.
  DialogUser(const CommandLine& line, const Gestures& gestures,
             std::function<void(const std::string&)> report);

  std::optional<nrvui::gestures::ScriptedPresenter> script;  // either this one
  std::optional<qtui::QtPresenter> windows;                  // or this one is installed
  std::optional<nrvui::ui::InstalledPresenter> installed;
};

DialogUser::DialogUser(const CommandLine& line, const Gestures& gestures,
                       std::function<void(const std::string&)> report) {
  if (!line.ShowsWindows()) {
    installed.emplace(script.emplace(*gestures, std::move(report)));
    return;
  }
  if (!gestures && !line.WantsScreenshotsOnly() && !HasDisplay()) {
    throw StudioError(
        "$$$/Studio/Line/NeedsGestures=without a display the dialog needs --gestures FILE");
  }
  installed.emplace(windows.emplace());
  if (!line.dialogScreenshot.isEmpty()) windows->TakeScreenshots();
  if (gestures) {
    windows->PlayScript(*gestures, std::move(report));
  } else if (line.WantsScreenshotsOnly()) {
    windows->PlayScript(nrvui::gestures::GestureScript());
  }
}

/// Restores and keeps the dialog's entries, and has window and summary follow them.
class AskListener final : public qtui::DialogListener {
 public:
  /// `pictureWindow` may be null.
  AskListener(const Picture& shown, const MosaicChoices& askedChoices, PictureWindow* pictureWindow,
              DialogEntries& keptEntries)
      : picture(shown), asked(askedChoices), window(pictureWindow), entries(keptEntries) {}

  void DialogOpening(nrvui::ui::UI_Dialog& dialog) override { EnterAgain(dialog, entries); }
  std::optional<qtui::Summary> DialogChanged(
      const nrvui::ui::UI_Dialog& dialog,
      const std::optional<qtui::PendingEntry>& pending) override {
    entries = EntriesIn(dialog);
    const Forecast forecast = ForecastFor(dialog, asked, pending);
    if (window != nullptr) window->Follow(forecast.choices);
    return OutlookFor(picture, forecast);
  }

 private:
  const Picture& picture;
  const MosaicChoices& asked;
  PictureWindow* window;
  DialogEntries& entries;
};

}  // namespace

bool HasDisplay() {
  return QGuiApplication::platformName() != "offscreen";
}

ConsoleRun::ConsoleRun(CommandLine commandLine, WindowCamera windowCamera)
    : line(std::move(commandLine)),
      windowCamera(std::move(windowCamera)),
      lastChoices(line.state) {}

int ConsoleRun::Run() {
  const bool isEmptyWindow = line.picture.isEmpty() && line.dialogScreenshot.isEmpty();
  if (line.WantsScreenshotsOnly() && isEmptyWindow) return TakeScreenshots();
  if (line.picture.isEmpty())
    throw StudioError("$$$/Studio/Line/WhichPicture=which picture? See --help");
  for (const QString& path : line.exports) CheckExport(path);
  Open();
  if (line.WantsScreenshotsOnly()) return TakeScreenshots();

  if (!line.gestures.isEmpty())
    gestures = nrvui::gestures::GestureScript::ReadFile(SystemPath(line.gestures));
  OpenOutputs();
  QByteArrayList records;
  for (const ArtworkPtr& next : artworks) {
    artwork = next;
    MosaicChoices choices;
    if (!AskUntilUsable(choices)) {
      Tell(Text("$$$/Studio/Line/Cancelled=The dialog was cancelled."));
      return kCancelled;
    }
    last = choices;
    records << ToJson(choices, Fields::kAll);
    Tell(records.last().trimmed());
    if (!Build(choices)) break;
  }
  if (interruption->IsRequested() || !ExportDrawing()) {
    Tell(Text("$$$/Studio/Line/Stopped=The building was stopped."));
    return kCancelled;
  }
  if (recordDevice) {
    const bool isOne = records.size() == 1;
    WriteAll(*recordDevice, isOne ? records.front() : "[\n" + records.join(",\n") + "]\n");
  }
  SaveScreenshots();
  KeepChoices();
  ExitOnSignals(kDone);
  TellOfFiles();
  return kDone;
}

void ConsoleRun::CheckExport(const QString& path) const {
  if (line.images.isEmpty()) {
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
  if (line.images.isEmpty()) {
    Picture picture = Picture::Open(PictureFile(line.picture));
    if (!line.windowScreenshot.isEmpty()) MakeShowable(picture);
    artworks = {Place(line.picture, std::move(picture), line.isSizeUnknown)};
  } else {
    drawing = std::make_shared<const SvgDrawing>(SvgDrawing::Read(line.picture));
  }
  std::vector<const ImageElement*> images;
  for (const QString& id : line.images) images.push_back(&drawing->Image(id));
  for (const ImageElement* image : images) {
    placed.push_back(PlacedImage::Read(drawing, *image, line.isSizeUnknown));
    artworks.push_back(placed.back().artwork);
    if (const QString file = LinkedFile(*drawing, *image); !file.isEmpty()) outputs.Protect(file);
  }
  artwork = artworks.front();
}

/// Shows dialog and window only for as long as the screenshots take.
int ConsoleRun::TakeScreenshots() {
  interruption.emplace();
  OpenScreenshots();
  MosaicChoices choices;
  if (dialogScreenshotDevice) Ask(choices);
  SaveScreenshots();
  if (interruption->IsRequested()) return kCancelled;
  outputs.Commit();
  ExitOnSignals(kDone);
  TellOfFiles();
  return kDone;
}

/// A place that cannot be written is found before the dialog opens.
void ConsoleRun::OpenOutputs() {
  interruption.emplace();
  outputs.Protect(line.gestures);
  for (const QString& path : line.exports) exportDevices.push_back(&outputs.Add(path));
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
  entries.clear();
  while (Ask(choices)) {
    try {
      MosaicGeometry::From(choices, artwork->picture.SizeInPoints());
      return true;
    } catch (const ChoiceError&) {
      if (!line.IsForPerson()) return true;  // the build reports it
    }
  }
  return false;
}

bool ConsoleRun::Ask(MosaicChoices& choices) {
  const auto warn = [this](const StudioError& error) { Warn(error.what()); };
  choices = ChoicesFor(*artwork, last ? last : lastChoices.Load(warn));
  DialogUser user(line, gestures,
                  [this](const std::string& text) { Warn(QString::fromStdString(text)); });
  std::optional<PictureWindow> window;
  std::optional<AskListener> listener;
  if (user.windows) {
    if (drawing && line.IsForPerson()) window.emplace(artwork, choices, *user.windows);
    listener.emplace(artwork->picture, choices, window ? &*window : nullptr, entries);
    user.windows->AddListener(*listener);
  }
  const QSocketNotifier notifier(interruption->Descriptor(), QSocketNotifier::Read);
  QObject::connect(&notifier, &QSocketNotifier::activated, [] { QCoreApplication::exit(); });
  standin::RecordingUserInterface screen;
  MosaicCaller caller(screen);
  const bool isOk = caller.Ask(choices.params, choices.state);
  caller.Close();
  if (interruption->IsRequested()) return false;
  const auto& problem = user.windows ? user.windows->Error() : user.script->Error();
  if (problem) throw StudioError(QString(problem->what()));
  if (dialogScreenshotDevice) dialogScreenshot = user.windows->Screenshot();
  return isOk;
}

/// Pixels are held only where the picture shows in the result; otherwise they pass through.
bool ConsoleRun::Build(const MosaicChoices& choices) try {
  if (MosaicJob(artwork->picture, choices).ShowsPicture() && artwork->picture.Pixels().isNull()) {
    Picture picture = artwork->picture;
    MakeShowable(picture, [this] { return interruption->IsRequested(); });
    artwork = Place(line.picture, std::move(picture), line.isSizeUnknown);
  }
  MosaicJob job(artwork->picture, choices);
  const MosaicGeometry& geometry = job.Geometry();
  for (size_t i = 0; !drawing && i < exportDevices.size(); ++i) {
    const ExportKind& kind = ExportKindOf(line.exports[int(i)]);
    job.Add(kind.makeSink(*exportDevices[i], geometry, job.Below(), 0));
  }
  Mosaic mosaic;
  if (drawing || windowScreenshotDevice) job.Add(mosaic);
  ProgressLine progress(!line.isQuiet);
  const bool isComplete = job.Run([&](int rowsDone) {
    progress.Show(rowsDone, geometry.tilesDown);
    return !interruption->IsRequested();
  });
  if (!isComplete || interruption->IsRequested()) return false;
  Tell(Text("$$$/Studio/Line/Built=Built %1 tiles, %2 across and %3 down.",
            QString::number(qint64(geometry.tilesAcross) * geometry.tilesDown),
            QString::number(geometry.tilesAcross), QString::number(geometry.tilesDown)));
  if (!drawing && !windowScreenshotDevice) return true;
  artwork = WithMosaic(*artwork, std::move(mosaic));
  if (drawing) {
    const auto& [from, image, placement, before] = placed[mosaics.size()];
    mosaics.push_back({image, placement, artwork->mosaic});
  }
  return true;
} catch (const StudioError&) {
  if (interruption->IsRequested()) return false;
  throw;
}

/// Returns whether it ran to its end.
bool ConsoleRun::ExportDrawing() {
  const auto goOn = [this](int) { return !interruption->IsRequested(); };
  if (!drawing) return true;
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

/// Choices in a named place are one of the run's files; failing to keep those in the user's
/// settings must not cost a finished mosaic.
void ConsoleRun::KeepChoices() {
  if (stateDevice) WriteAll(*stateDevice, ToJson(*last, Fields::kChoices));
  outputs.Commit();
  if (stateDevice) return;
  try {
    lastChoices.Save(*last);
  } catch (const StudioError& error) {
    Warn(
        Text("$$$/Studio/Line/ChoicesNotKept=the choices are not kept: %1", QString(error.what())));
  }
}

void ConsoleRun::Tell(const QString& text) const {
  if (!line.isQuiet) Print(text + '\n');
}

/// The files are in their places by now, so a failure to print this is a warning only.
void ConsoleRun::TellOfFiles() const try {
  QStringList paths = line.exports + line.Screenshots();
  if (!line.record.isEmpty()) paths << line.record;
  for (const QString& path : paths) Tell(OnOneLine(Text("$$$/Studio/Line/Wrote=Wrote %1", path)));
} catch (const StudioError& error) {
  Warn(error.what());
}

void ConsoleRun::Warn(const QString& text) const {
  if (!line.isQuiet) PrintError(text);
}
