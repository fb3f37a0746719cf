#include "studio/console/console_run.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <utility>

#include "platform/standin/user_interface.h"
#include "studio/base/file_name.h"
#include "studio/base/output.h"
#include "studio/base/studio_error.h"
#include "studio/caller/dialog_choices.h"
#include "studio/caller/mosaic_caller.h"
#include "studio/console/dialog_user.h"
#include "studio/console/terminal.h"
#include "studio/export/mosaic_export.h"
#include "studio/export/picture_encoding.h"
#include "studio/mosaic/mosaic_job.h"
#include "studio/mosaic/outlook.h"

namespace {

constexpr int kDone = 0;
constexpr int kCancelled = 1;

void SaveScreenshot(QIODevice& device, const QImage& screenshot) {
  WriteAll(device, EncodePicture(screenshot, "png").toStdString());
}

}  // namespace

ConsoleRun::ConsoleRun(CommandLine commandLine, WindowCamera windowCamera)
    : line(std::move(commandLine)),
      windowCamera(std::move(windowCamera)),
      lastChoices(line.state) {}

int ConsoleRun::Run() {
  const bool isEmptyWindow = line.picture.isEmpty() && line.dialogScreenshot.isEmpty();
  if (line.WantsScreenshotsOnly() && isEmptyWindow) return TakeScreenshots();
  if (line.picture.isEmpty())
    throw StudioError("$$$/Studio/Line/WhichPicture=which picture? See --help");
  for (const QString& path : line.exports) ExportKindOf(path);
  PlacePicture();
  if (line.WantsScreenshotsOnly()) return TakeScreenshots();

  if (!line.gestures.isEmpty())
    gestures = nrvui::gestures::GestureScript::ReadFile(SystemPath(line.gestures));
  OpenOutputs();
  MosaicChoices choices = FirstChoices();
  if (!Ask(choices)) {
    Tell(Text("$$$/Studio/Line/Cancelled=The dialog was cancelled."));
    return kCancelled;
  }
  const QByteArray json = RecordToJson(choices);
  Tell(json.trimmed());
  if (recordDevice) WriteAll(*recordDevice, json.toStdString());
  if (Build(choices)) SaveWindowScreenshot();
  if (interruption->IsRequested()) {
    Tell(Text("$$$/Studio/Line/Stopped=The building was stopped."));
    return kCancelled;
  }
  KeepChoices(choices);
  TellOfFiles();
  return kDone;
}

/// Shows dialog and window only for as long as the screenshots take.
int ConsoleRun::TakeScreenshots() {
  interruption.emplace();
  OpenScreenshots();
  if (dialogScreenshotDevice) {
    MosaicChoices choices = FirstChoices();
    Ask(choices);
  }
  SaveWindowScreenshot();
  if (interruption->IsRequested()) return kCancelled;
  outputs.Commit();
  TellOfFiles();
  return kDone;
}

void ConsoleRun::PlacePicture() {
  Picture picture = Picture::Read(line.picture);
  outputs.Protect(line.picture);
  artwork = Place(line.picture, std::move(picture), line.isSizeUnknown);
}

MosaicChoices ConsoleRun::FirstChoices() const {
  const auto warn = [this](const StudioError& error) { Warn(error.what()); };
  return ChoicesFor(*artwork, lastChoices.Load(warn));
}

/// A place that cannot be written is found before the dialog opens.
void ConsoleRun::OpenOutputs() {
  interruption.emplace();
  outputs.Protect(line.gestures);
  for (const QString& path : line.exports) exportDevices.push_back(&outputs.Add(path));
  if (!line.record.isEmpty()) recordDevice = &outputs.Add(line.record);
  if (lastChoices.IsNamed()) stateDevice = &outputs.Add(lastChoices.Path());
  OpenScreenshots();
}

void ConsoleRun::OpenScreenshots() {
  if (!line.dialogScreenshot.isEmpty())
    dialogScreenshotDevice = &outputs.Add(line.dialogScreenshot);
  if (!line.windowScreenshot.isEmpty())
    windowScreenshotDevice = &outputs.Add(line.windowScreenshot);
}

bool ConsoleRun::Ask(MosaicChoices& choices) {
  DialogUser user(line, gestures,
                  [this](const std::string& text) { Warn(QString::fromStdString(text)); });
  user.WhenChanged([&](const nrvui::ui::UI_Dialog& dialog) {
    const Outlook outlook = OutlookFor(artwork->picture, ChoicesOnOk(dialog, choices));
    return qtui::ReadOut{outlook.text, !outlook.isMosaic};
  });
  const QSocketNotifier notifier(interruption->Descriptor(), QSocketNotifier::Read);
  QObject::connect(&notifier, &QSocketNotifier::activated, [] { QCoreApplication::exit(); });
  standin::RecordingUserInterface screen;
  MosaicCaller caller(screen);
  const auto answer = caller.Ask(choices.params, choices.state);
  caller.Close();
  if (interruption->IsRequested()) return false;
  if (!user.Problem().isEmpty()) throw StudioError(user.Problem());
  if (dialogScreenshotDevice) SaveScreenshot(*dialogScreenshotDevice, user.Screenshot());
  return answer == MosaicCaller::Answer::kOk;
}

bool ConsoleRun::Build(const MosaicChoices& choices) {
  MosaicJob job(artwork->picture, choices);
  const MosaicGeometry& geometry = job.Geometry();
  for (size_t i = 0; i < exportDevices.size(); ++i) {
    const ExportKind& kind = ExportKindOf(line.exports[int(i)]);
    job.Add(kind.makeSink(*exportDevices[i], geometry, job.Below(), 0));
  }
  Mosaic mosaic;
  if (windowScreenshotDevice) job.Add(mosaic);
  ProgressLine progress(!line.isQuiet);
  const bool isComplete = job.Run([&](int rowsDone) {
    progress.Show(rowsDone, geometry.tilesDown);
    return !interruption->IsRequested();
  });
  if (!isComplete || interruption->IsRequested()) return false;
  Tell(Text("$$$/Studio/Line/Built=Built %1 tiles, %2 across and %3 down.",
            QString::number(qint64(geometry.tilesAcross) * geometry.tilesDown),
            QString::number(geometry.tilesAcross), QString::number(geometry.tilesDown)));
  if (windowScreenshotDevice) artwork = WithMosaic(*artwork, std::move(mosaic));
  return true;
}

void ConsoleRun::SaveWindowScreenshot() {
  if (windowScreenshotDevice) SaveScreenshot(*windowScreenshotDevice, windowCamera(artwork));
}

/// Choices in a named place are one of the run's files; failing to keep those in the user's
/// settings must not cost a finished mosaic.
void ConsoleRun::KeepChoices(const MosaicChoices& choices) {
  if (stateDevice) WriteAll(*stateDevice, ChoicesToJson(choices).toStdString());
  outputs.Commit();
  if (stateDevice) return;
  try {
    lastChoices.Save(choices);
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
