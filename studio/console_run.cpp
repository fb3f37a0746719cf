#include "studio/console_run.h"

#include <cstdio>
#include <utility>

#include "platform/standin/gesture_player.h"
#include "platform/standin/user_interface.h"
#include "studio/interruption.h"
#include "studio/mosaic_caller.h"
#include "studio/mosaic_export.h"
#include "studio/mosaic_job.h"
#include "studio/progress_line.h"
#include "studio/studio_error.h"
#include "studio/text_writer.h"

namespace {

constexpr int kDone = 0;
constexpr int kCancelled = 1;

/// Hands on what the host showed, when a failure follows from it.
class Alerts : public standin::RecordingUserInterface {
 public:
  [[noreturn]] void Fail(const StudioError& error) const {
    QString text = error.what();
    for (const std::string& alert : alerts) text += "; " + QString::fromStdString(alert);
    throw StudioError(text);
  }
};

}  // namespace

ConsoleRun::ConsoleRun(CommandLine commandLine)
    : line(std::move(commandLine)), lastChoices(line.state) {}

int ConsoleRun::Run() {
  if (line.gestures.isEmpty()) {
    throw StudioError("without a window the dialog needs --gestures FILE");
  }
  for (const QString& path : line.exports) CheckExportEnding(path);
  const Interruption interruption;
  const Picture picture = Picture::Read(line.picture);
  OpenOutputs();

  MosaicChoices choices = ChoicesFor(picture.SizeInPoints(), LoadLastChoices());
  if (!Ask(choices)) {
    Tell("The dialog was cancelled.");
    return kCancelled;
  }
  const QByteArray json = RecordToJson(choices);
  Tell(json.trimmed());
  if (recordDevice) WriteAll(*recordDevice, json.toStdString());
  if (!Build(picture, choices, interruption)) {
    Tell("The building was stopped.");
    return kCancelled;
  }
  KeepChoices(choices);
  for (const QString& path : line.exports) Tell("Wrote " + path);
  if (recordDevice) Tell("Wrote " + line.record);
  return kDone;
}

/// A place that cannot be written is found before anybody is asked anything.
void ConsoleRun::OpenOutputs() {
  outputs.Protect(line.picture);
  outputs.Protect(line.gestures);
  for (const QString& path : line.exports) exportDevices.push_back(&outputs.Add(path));
  if (!line.record.isEmpty()) recordDevice = &outputs.Add(line.record);
  if (lastChoices.IsNamed()) stateDevice = &outputs.Add(lastChoices.Path());
}

std::optional<MosaicChoices> ConsoleRun::LoadLastChoices() const try {
  return lastChoices.Load();
} catch (const StudioError& error) {
  if (lastChoices.IsNamed()) throw;
  Warn(error.what());
  return std::nullopt;
}

bool ConsoleRun::Ask(MosaicChoices& choices) const {
  const standin::GesturePlayer player(line.gestures.toStdString(), [this](const std::string& text) {
    Warn(QString::fromStdString(text));
  });
  Alerts alerts;
  try {
    MosaicCaller caller(alerts);
    const auto answer = caller.Ask(choices.params, choices.state);
    caller.Close();
    if (!player.Problem().empty()) throw StudioError(QString::fromStdString(player.Problem()));
    Tell("No block left.");
    return answer == MosaicCaller::Answer::kOk;
  } catch (const StudioError& error) {
    alerts.Fail(error);
  }
}

bool ConsoleRun::Build(const Picture& picture, const MosaicChoices& choices,
                       const Interruption& interruption) {
  MosaicJob job(picture, choices.params, choices.state);
  for (size_t i = 0; i < exportDevices.size(); ++i) {
    job.AddExport(line.exports[int(i)], *exportDevices[i]);
  }
  const MosaicGeometry& geometry = job.Geometry();
  ProgressLine progress(!line.isQuiet);
  const bool isComplete = job.Run([&](int rowsDone) {
    progress.Show(rowsDone, geometry.tilesDown);
    return !interruption.IsRequested();
  });
  if (!isComplete || interruption.IsRequested()) return false;
  Tell(QString("Built %1 tiles, %2 across and %3 down.")
           .arg(qint64(geometry.tilesAcross) * geometry.tilesDown)
           .arg(geometry.tilesAcross)
           .arg(geometry.tilesDown));
  return true;
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
    Warn("the choices are not kept: " + QString(error.what()));
  }
}

void ConsoleRun::Tell(const QString& text) const {
  if (line.isQuiet) return;
  std::printf("%s\n", qPrintable(text));
  std::fflush(stdout);  // a long build may follow
}

void ConsoleRun::Warn(const QString& text) const {
  if (!line.isQuiet) std::fprintf(stderr, "tesserae-studio: %s\n", qPrintable(text));
}
