#include <QGuiApplication>
#include <cstdio>
#include <new>

#include "platform/nrvcore/localizer.h"
#include "platform/standin/resource_root.h"
#include "studio/command_line.h"
#include "studio/console_run.h"

namespace {

constexpr int kSomethingWrong = 2;

void SpeakLanguage(const QString& code) {
  auto& localizer = nrvcore::config::Localizer::Get();
  localizer.SetCatalogues(standin::DefaultResourceRoot() / "translations");
  localizer.SetLanguage(code.toStdString());
}

int RunStudio(const QStringList& arguments) {
  const CommandLine line = CommandLine::Parse(arguments);
  if (line.showHelp) {
    std::fputs(qPrintable(CommandLine::HelpText()), stdout);
    return 0;
  }
  if (line.showVersion) {
    std::printf("tesserae-studio %s\n", qPrintable(QCoreApplication::applicationVersion()));
    return 0;
  }
  SpeakLanguage(line.language);
  return ConsoleRun(line).Run();
}

/// What the libraries have to tell developers is nothing for the user's terminal.
void PassOver(QtMsgType, const QMessageLogContext&, const QString&) {}

}  // namespace

int main(int argc, char** argv) try {
  qInstallMessageHandler(PassOver);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  QCoreApplication::setApplicationName("tesserae-studio");
  QCoreApplication::setApplicationVersion(TESSERAE_VERSION);
  return RunStudio(QCoreApplication::arguments().mid(1));
} catch (const std::bad_alloc&) {
  std::fputs("tesserae-studio: there is not enough memory\n", stderr);
  return kSomethingWrong;
} catch (const std::exception& error) {
  std::fprintf(stderr, "tesserae-studio: %s\n", error.what());
  return kSomethingWrong;
}
