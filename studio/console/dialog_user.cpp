#include "studio/console/dialog_user.h"

#include <QFile>
#include <QTemporaryDir>
#include <QWidget>
#include <utility>

#include "platform/nrvui/scripted_presenter.h"
#include "platform/qt/qt_presenter.h"
#include "studio/base/studio_error.h"
#include "studio/console/display.h"

namespace {

class ScriptedUser final : public DialogUser {
 public:
  ScriptedUser(const CommandLine& line, std::function<void(const std::string&)> report)
      : presenter(nrvui::gestures::GestureScript::ReadFile(line.gestures.toStdString()),
                  std::move(report)) {}

  QString Problem() const override {
    return presenter.Error() ? presenter.Error()->what() : QString();
  }

 private:
  nrvui::gestures::ScriptedPresenter presenter;
  const nrvui::ui::InstalledPresenter installed{presenter};
};

class WindowUser final : public DialogUser {
 public:
  WindowUser(const CommandLine& line, std::function<void(const std::string&)> report) {
    if (!line.dialogPicture.isEmpty()) {
      if (!scratch.isValid()) {
        throw StudioError(
            "$$$/Studio/Line/NoScratch=the dialog's picture needs a temporary folder: %1",
            scratch.errorString());
      }
      presenter.SetScreenshot(PicturePath().toStdString());
    }
    if (!line.gestures.isEmpty()) {
      presenter.PlayScript(nrvui::gestures::GestureScript::ReadFile(line.gestures.toStdString()),
                           std::move(report));
    } else if (line.WantsPicturesOnly()) {
      presenter.WhenPainted([](QWidget& window) { window.close(); });
    }
  }

  QString Problem() const override {
    if (presenter.Error()) return presenter.Error()->what();
    return QString::fromStdString(presenter.ScreenshotProblem());
  }

  QByteArray Picture() const override {
    QFile file(PicturePath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

 private:
  QString PicturePath() const { return scratch.filePath("dialog.png"); }

  const QTemporaryDir scratch;
  qtui::QtPresenter presenter;
  const nrvui::ui::InstalledPresenter installed{presenter};
};

}  // namespace

std::unique_ptr<DialogUser> MakeDialogUser(const CommandLine& line,
                                           std::function<void(const std::string&)> report) {
  if (!line.gestures.isEmpty() && !line.ShowsWindows()) {
    return std::make_unique<ScriptedUser>(line, std::move(report));
  }
  if (line.gestures.isEmpty() && !line.WantsPicturesOnly() && !HasDisplay()) {
    throw StudioError(
        "$$$/Studio/Line/NeedsGestures=without a display the dialog needs --gestures FILE");
  }
  return std::make_unique<WindowUser>(line, std::move(report));
}
