#include <QApplication>
#include <QDeadlineTimer>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QScopeGuard>
#include <QSocketNotifier>
#include <QTimer>
#include <QTranslator>
#include <algorithm>
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
#include "studio/console/inkscape_run.h"
#include "studio/console/terminal.h"
#include "studio/window/settings.h"
#include "studio/window/studio_window.h"

namespace {

constexpr int kStopped = 1;
constexpr int kSomethingWrong = 2;

constexpr const char* kPlatform = "QT_QPA_PLATFORM";

/// Lets Qt use the display that the environment names, and none when it cannot be reached. A
/// platform that the user chose takes precedence, except in runs without windows, which need no
/// display. Takes effect before the QApplication.
void ChoosePlatform(bool showsWindows) {
  if (showsWindows && qEnvironmentVariableIsSet(kPlatform)) return;
  QByteArray platforms;
  if (showsWindows && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) platforms += "wayland;";
  if (showsWindows && !qEnvironmentVariableIsEmpty("DISPLAY")) platforms += "xcb;";
  qputenv(kPlatform, platforms + "offscreen");
}

/// Scales that no screen has, 0 for one, crash Qt or take all memory: they count as not set. Takes
/// effect before the QApplication.
void PassOverAbsurdScales() {
  constexpr struct {
    const char* variable;  // numbers parted by ";", each perhaps behind a screen's name and "="
    double least;
    double most;
  } kScales[] = {{"QT_SCALE_FACTOR", 0.25, 8},
                 {"QT_SCREEN_SCALE_FACTORS", 0.25, 8},
                 {"QT_FONT_DPI", 24, 1000}};
  for (const auto& [variable, least, most] : kScales) {
    const QByteArrayList values = qgetenv(variable).split(';');
    const bool isSensible = std::all_of(
        values.begin(), values.end(), [least = least, most = most](const QByteArray& value) {
          const double scale = value.mid(value.lastIndexOf('=') + 1).toDouble();
          return scale >= least && scale <= most;
        });
    if (!isSensible) qunsetenv(variable);
  }
}

/// An empty code is the language of the user's environment. Windows are laid out as it is written,
/// also when their words are English for want of a translation.
void SpeakLanguage(const QString& code) {
  const auto& localizer = nrvcore::config::Localizer::Get();
  if (!code.isEmpty()) QLocale::setDefault(QLocale(code));
  if (!code.isEmpty() && !localizer.HasCatalogue() && QLocale().language() != QLocale::English) {
    PrintError(
        Text("$$$/Studio/Line/NoTranslation=there is no translation for \"%1\", so the texts "
             "are English",
             code));
  }
  QGuiApplication::setLayoutDirection(QLocale().textDirection());

  // What Qt's own boxes say, where its translations are installed.
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

int RunStudio(const CommandLine& line) {
  SpeakLanguage(line.language);
  qtui::ApplyTheme(qtui::ThemeNamed(line.theme).value_or(settings::ChosenTheme()));
  if (line.isFromInkscape) return RunForInkscape(line, WindowScreenshot);
  const bool wantsStudio = line.ShownWindows() == CommandLine::Windows::kStudio;
  if (wantsStudio && HasDisplay()) return RunWindow(line);
  if (wantsStudio && line.picture.isEmpty())
    throw StudioError("$$$/Studio/Line/NoDisplay=no display is available; see --help");
  return ConsoleRun(line, WindowScreenshot).Run();
}

/// Qt's messages are for developers and stay off the user's terminal. After a fatal one, such as
/// that a platform is not available, Qt aborts; this ends the program with one line instead.
void HandleQtMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type != QtFatalMsg) return;
  const bool isStarting = QGuiApplication::platformName().isEmpty();
  PrintError(isStarting
                 ? Text("$$$/Studio/Line/NoPlatform=no display is available on the platform %1",
                        qEnvironmentVariable(kPlatform))
                 : message.section('\n', 0, 0));
  std::_Exit(kSomethingWrong);
}

bool hasReturned = false;  // from main

/// Qt calls exit when its display goes away.
void ReportExitOfLibrary() {
  if (hasReturned) return;
  PrintError(Text("$$$/Studio/Line/DisplayLost=the connection to the display was lost"));
  std::_Exit(kSomethingWrong);
}

QStringList Arguments(int argc, char** argv) {
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments << FileName(argv[i]);
  return arguments;
}

}  // namespace

int main(int argc, char** argv) try {
  SilenceLibraries();
  qInstallMessageHandler(HandleQtMessage);
  ExitOnSignals(kStopped);
  // Writing to a closed pipe, or more than RLIMIT_FSIZE, then fails with an errno.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGCHLD, SIG_DFL);  // when ignored, the picture reader's exit status is lost
  auto& localizer = nrvcore::config::Localizer::Get();
  std::atexit(ReportExitOfLibrary);
  const auto returning = qScopeGuard([] { hasReturned = true; });
  localizer.SetCatalogues(standin::ResourceFolders::OfProgram().host / "translations");
  localizer.SetLanguage({});
  const CommandLine line = CommandLine::Parse(Arguments(argc, argv));
  localizer.SetLanguage(line.language.toStdString());  // before there are other threads
  if (line.showHelp) {
    int onlyName = 1;
    const QCoreApplication application(onlyName, argv);
    SpeakLanguage(line.language);
    Print(CommandLine::HelpText());
    return 0;
  }
  if (line.showVersion) {
    Print("tesserae-studio " TESSERAE_VERSION "\n");
    return 0;
  }
  ChoosePlatform(line.ShownWindows() != CommandLine::Windows::kNone);
  PassOverAbsurdScales();
  int onlyName = 1;  // the options are ours; Qt would take "-platform" for one of its own
  const QApplication application(onlyName, argv);
  QCoreApplication::setApplicationName("tesserae-studio");
  QGuiApplication::setDesktopFileName("tesserae-studio");  // whose icon Wayland shows
  QGuiApplication::setWindowIcon(QIcon(":/tesserae-studio.svg"));
  QCoreApplication::setApplicationVersion(TESSERAE_VERSION);
  return RunStudio(line);
} catch (const std::exception& error) {
  PrintError(ReasonText(error));
  return kSomethingWrong;
}
