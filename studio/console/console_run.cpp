#include "studio/console/console_run.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <cstdio>
#include <utility>

#include "platform/standin/user_interface.h"
#include "studio/base/studio_error.h"
#include "studio/base/text.h"
#include "studio/base/text_writer.h"
#include "studio/caller/mosaic_caller.h"
#include "studio/console/dialog_user.h"
#include "studio/console/progress_line.h"
#include "studio/console/standard_output.h"
#include "studio/export/mosaic_export.h"
#include "studio/mosaic/mosaic_job.h"
#include "studio/mosaic/tile_sink.h"

namespace {

constexpr int kDone = 0;
constexpr int kCancelled = 1;

}  // namespace

ConsoleRun::ConsoleRun(CommandLine commandLine, WindowPhotographer photographWindow)
    : line(std::move(commandLine)),
      photographWindow(std::move(photographWindow)),
      lastChoices(line.state) {}

int ConsoleRun::Run() {
  const bool isEmptyWindow = line.picture.isEmpty() && line.dialogPicture.isEmpty();
  if (line.WantsPicturesOnly() && isEmptyWindow) return Photograph();
  if (line.picture.isEmpty())
    throw StudioError("$$$/Studio/Line/WhichPicture=which picture? See --help");
  for (const QString& path : line.exports) CheckExportEnding(path);
  PlacePicture();
  if (line.WantsPicturesOnly()) return Photograph();

  OpenOutputs();
  MosaicChoices choices = FirstChoices();
  if (!Ask(choices)) {
    Tell(Text("$$$/Studio/Line/Cancelled=The dialog was cancelled."));
    return kCancelled;
  }
  const QByteArray json = RecordToJson(choices);
  Tell(json.trimmed());
  if (recordDevice) WriteAll(*recordDevice, json.toStdString());
  if (Build(choices)) SaveWindowPicture();
  if (interruption.IsRequested()) {
    Tell(Text("$$$/Studio/Line/Stopped=The building was stopped."));
    return kCancelled;
  }
  KeepChoices(choices);
  TellOfFiles();
  return kDone;
}

/// Shows what there is to be photographed, and lets nobody do anything with it.
int ConsoleRun::Photograph() {
  OpenPictureOutputs();
  if (dialogPictureDevice) {
    MosaicChoices choices = FirstChoices();
    Ask(choices);
  }
  SaveWindowPicture();
  if (interruption.IsRequested()) return kCancelled;
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

/// A place that cannot be written is found before anybody is asked anything.
void ConsoleRun::OpenOutputs() {
  outputs.Protect(line.gestures);
  for (const QString& path : line.exports) exportDevices.push_back(&outputs.Add(path));
  if (!line.record.isEmpty()) recordDevice = &outputs.Add(line.record);
  if (lastChoices.IsNamed()) stateDevice = &outputs.Add(lastChoices.Path());
  OpenPictureOutputs();
}

void ConsoleRun::OpenPictureOutputs() {
  if (!line.dialogPicture.isEmpty()) dialogPictureDevice = &outputs.Add(line.dialogPicture);
  if (!line.windowPicture.isEmpty()) windowPictureDevice = &outputs.Add(line.windowPicture);
}

bool ConsoleRun::Ask(MosaicChoices& choices) {
  const auto user =
      MakeDialogUser(line, [this](const std::string& text) { Warn(QString::fromStdString(text)); });
  const QSocketNotifier notifier(interruption.Descriptor(), QSocketNotifier::Read);
  QObject::connect(&notifier, &QSocketNotifier::activated, [] { QCoreApplication::exit(); });
  standin::RecordingUserInterface screen;
  try {
    MosaicCaller caller(screen);
    const auto answer = caller.Ask(choices.params, choices.state);
    caller.Close();
    if (interruption.IsRequested()) return false;
    if (!user->Problem().isEmpty()) throw StudioError(user->Problem());
    if (dialogPictureDevice) WriteAll(*dialogPictureDevice, user->Picture().toStdString());
    return answer == MosaicCaller::Answer::kOk;
  } catch (const StudioError& error) {
    QString text = error.what();
    for (const std::string& alert : screen.alerts) text += "; " + QString::fromStdString(alert);
    throw StudioError(text);
  }
}

bool ConsoleRun::Build(const MosaicChoices& choices) {
  MosaicJob job(artwork->picture, choices.params, choices.state);
  const MosaicGeometry& geometry = job.Geometry();
  for (size_t i = 0; i < exportDevices.size(); ++i) {
    job.Add(MakeExport(line.exports[int(i)], *exportDevices[i], geometry, job.Below()));
  }
  Mosaic mosaic{choices, geometry, {}, job.Below()};
  if (windowPictureDevice) job.Add(std::make_unique<TileSink>(geometry, mosaic.tiles));
  ProgressLine progress(!line.isQuiet);
  const bool isComplete = job.Run([&](int rowsDone) {
    progress.Show(rowsDone, geometry.tilesDown);
    return !interruption.IsRequested();
  });
  if (!isComplete || interruption.IsRequested()) return false;
  Tell(Text("$$$/Studio/Line/Built=Built %1 tiles, %2 across and %3 down.",
            QString::number(qint64(geometry.tilesAcross) * geometry.tilesDown),
            QString::number(geometry.tilesAcross), QString::number(geometry.tilesDown)));
  if (!windowPictureDevice) return true;
  artwork = WithMosaic(*artwork, std::move(mosaic));
  return true;
}

void ConsoleRun::SaveWindowPicture() {
  if (windowPictureDevice) WriteAll(*windowPictureDevice, photographWindow(artwork).toStdString());
}

/// Choices in a named place come and go with the other files; those in the user's settings are a
/// convenience, which must not cost a finished mosaic.
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

/// The files are there by now, whether or not anybody hears of them.
void ConsoleRun::TellOfFiles() const try {
  QStringList paths = line.exports + line.Pictures();
  if (!line.record.isEmpty()) paths << line.record;
  for (const QString& path : paths) Tell(Text("$$$/Studio/Line/Wrote=Wrote %1", path));
} catch (const StudioError& error) {
  Warn(error.what());
}

void ConsoleRun::Warn(const QString& text) const {
  if (!line.isQuiet) std::fprintf(stderr, "tesserae-studio: %s\n", qPrintable(text));
}
