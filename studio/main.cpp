#include <QApplication>
#include <QDeadlineTimer>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QScopeGuard>
#include <QSocketNotifier>
#include <QTimer>
#include <QTranslator>
#include <csignal>
#include <cstdlib>

#include "platform/nrvcore/localizer.h"
#include "platform/qt/qt_presenter.h"
#include "platform/qt/theme.h"
#include "platform/standin/resources.h"
#include "studio/base/file_name.h"
#include "studio/base/interruption.h"
#include "studio/base/studio_error.h"
#include "studio/caller/kept_choices.h"
#include "studio/console/command_line.h"
#include "studio/console/console_run.h"
#include "studio/console/terminal.h"
#include "studio/window/settings.h"
#include "studio/window/studio_window.h"

namespace {

constexpr int kStopped = 1;
constexpr int kFailed = 2;

constexpr const char* kPlatform = "QT_QPA_PLATFORM";

/// Selects Qt's platform: the display that the environment names, or "offscreen" if it cannot be
/// reached. A platform that the user chose takes precedence, except in runs without windows, which
/// need no display. Must be called before the QApplication is created.
void ChoosePlatform(bool showsWindows) {
  if (showsWindows && qEnvironmentVariableIsSet(kPlatform)) return;
  QByteArray platforms;
  if (showsWindows && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) platforms += "wayland;";
  if (showsWindows && !qEnvironmentVariableIsEmpty("DISPLAY")) platforms += "xcb;";
  qputenv(kPlatform, platforms + "offscreen");
}

/// Sets Qt's locale, layout direction and translations. An empty code stands for the language of
/// the environment. The layout direction is that of the language even if its texts are missing and
/// appear in English.
void SetLanguage(const QString& code) {
  const auto& localizer = nrvcore::config::Localizer::Get();
  if (!code.isEmpty()) QLocale::setDefault(QLocale(code));
  if (!code.isEmpty() && !localizer.HasCatalogue() && QLocale().language() != QLocale::English) {
    PrintError(
        Text("$$$/Studio/Line/NoTranslation=there is no translation for \"%1\", so the texts "
             "are English",
             code));
  }
  QGuiApplication::setLayoutDirection(QLocale().textDirection());

  // The texts of Qt's own dialogs, if its translations are installed.
  static QTranslator translator;
  if (translator.load(QLocale(), "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&translator);
}

int RunWindow(const CommandLine& line) {
  const Interruption interruption;
  const QSocketNotifier notifier(interruption.Descriptor(), QSocketNotifier::Read);
  QObject::connect(&notifier, &QSocketNotifier::activated, [] { QApplication::exit(kStopped); });
  qtui::QtPresenter presenter;
  StudioWindow window(line.state, presenter);
  window.SetSizeUnknown(line.isSizeUnknown);
  std::optional<DialogEntries> preset;
  if (!line.preset.isEmpty()) preset = ChoicesFile(line.state).Load().Preset(line.preset);
  window.show();
  bool isOpen = false;
  if (!line.images.isEmpty()) {
    isOpen = window.OpenImage(line.picture, line.images.front());
  } else if (!line.picture.isEmpty()) {
    isOpen = window.OpenPicture(line.picture);
  }
  if (isOpen && preset) QTimer::singleShot(0, &window, [&] { window.Create(*preset); });
  const int status = interruption.IsRequested() ? kStopped : QApplication::exec();
  ExitOnSignals(status);
  window.CloseModule();
  return status;
}

QImage WindowScreenshot(const ArtworkPtr& artwork) {
  constexpr QSize kSize(1080, 760);
  constexpr int kActivationTimeout = 2000;  // ms
  qtui::QtPresenter presenter;
  StudioWindow window({}, presenter);
  window.resize(kSize);
  window.Show(artwork);
  window.show();
  window.activateWindow();
  const QDeadlineTimer deadline(kActivationTimeout);
  do {
    QCoreApplication::processEvents();
  } while (!window.isActiveWindow() && !deadline.hasExpired());
  QImage screenshot = window.grab().toImage();
  window.CloseModule();
  return screenshot;
}

/// Cancel has status 0 and writes nothing, which leaves Inkscape's document as it is, without a
/// step to undo. Inkscape shows the error output in a box, so an error is a sentence without the
/// program's name.
int RunForInkscape(const CommandLine& line) {
  try {
    return ConsoleRun(line, WindowScreenshot).Run();
  } catch (const std::exception& error) {
    PrintSentence(Sentence(ReasonText(error)));
    return kFailed;
  }
}

int RunStudio(const CommandLine& line) {
  SetLanguage(line.language);
  qtui::ApplyTheme(qtui::ThemeNamed(line.theme).value_or(settings::ChosenTheme()));
  if (line.isFromInkscape) return RunForInkscape(line);
  const bool wantsStudio = line.ShownWindows() == CommandLine::Windows::kStudio;
  if (wantsStudio && HasDisplay()) return RunWindow(line);
  if (wantsStudio && line.picture.isEmpty())
    throw StudioError("$$$/Studio/Line/NoDisplay=no display is available; see --help");
  return ConsoleRun(line, WindowScreenshot).Run();
}

/// Drops Qt's messages, which are for developers. After a fatal one, such as a platform that is not
/// available, Qt aborts; this ends the program with one line instead.
void HandleQtMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type != QtFatalMsg) return;
  const bool isStarting = QGuiApplication::platformName().isEmpty();
  PrintError(isStarting
                 ? Text("$$$/Studio/Line/NoPlatform=no display is available on the platform %1",
                        qEnvironmentVariable(kPlatform))
                 : message.section('\n', 0, 0));
  std::_Exit(kFailed);
}

bool hasReturned = false;  // from main

/// Qt calls exit when the connection to the display breaks.
void ReportExitOfLibrary() {
  if (hasReturned) return;
  PrintError(Text("$$$/Studio/Line/DisplayLost=the connection to the display was lost"));
  std::_Exit(kFailed);
}

QStringList Arguments(int argc, char** argv) {
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments << FileName(argv[i]);
  return arguments;
}

int Run(int argc, char** argv) {
  auto& localizer = nrvcore::config::Localizer::Get();
  localizer.SetCatalogues(standin::ResourceFolders::OfProgram().host / "translations");
  localizer.SetLanguage({});
  const CommandLine line = CommandLine::Parse(Arguments(argc, argv));
  localizer.SetLanguage(line.language.toStdString());  // before other threads start
  // The options are the program's own; Qt would interpret "-platform".
  int nameOnly = 1;
  if (line.showHelp) {
    const QCoreApplication application(nameOnly, argv);
    SetLanguage(line.language);
    Print(CommandLine::HelpText());
    return 0;
  }
  if (line.showVersion) {
    Print("tesserae-studio " TESSERAE_VERSION "\n");
    return 0;
  }
  ChoosePlatform(line.ShownWindows() != CommandLine::Windows::kNone);
  const QApplication application(nameOnly, argv);
  QCoreApplication::setApplicationName("tesserae-studio");
  QGuiApplication::setDesktopFileName("tesserae-studio");  // for Wayland to find the icon
  QGuiApplication::setWindowIcon(QIcon(":/tesserae-studio.svg"));
  QCoreApplication::setApplicationVersion(TESSERAE_VERSION);
  return RunStudio(line);
}

}  // namespace

int main(int argc, char** argv) {
  SilenceLibraries();
  qInstallMessageHandler(HandleQtMessage);
  ExitOnSignals(kStopped);
  // Writing to a closed pipe, or beyond RLIMIT_FSIZE, then fails with an errno.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGCHLD, SIG_DFL);  // if ignored, the picture reader's exit status is lost
  std::atexit(ReportExitOfLibrary);
  const auto returning = qScopeGuard([] { hasReturned = true; });
  try {
    return Run(argc, argv);
  } catch (const std::exception& error) {
    PrintError(ReasonText(error));
    return kFailed;
  }
}
