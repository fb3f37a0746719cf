#include "studio/console/command_line.h"

#include <QCommandLineParser>

#include "platform/qt/theme.h"
#include "studio/base/studio_error.h"

namespace {

struct Option {
  const char* name;
  const char* value;  // the key of its value's name in the help; null without a value
  const char* help;   // the key of its description
  bool CommandLine::*flag = nullptr;
  QString CommandLine::*text = nullptr;
  QStringList CommandLine::*list = nullptr;  // the values of an option that can be repeated
};

constexpr const char* kFile = "$$$/Studio/Help/File=FILE";
constexpr const char* kCode = "$$$/Studio/Help/Code=CODE";
constexpr const char* kId = "$$$/Studio/Help/Id=ID";
constexpr const char* kName = "$$$/Studio/Help/Name=NAME";
constexpr const char* kTheme = "$$$/Studio/Help/Theme=THEME";

constexpr Option kOptions[] = {
    {"gestures", kFile, "$$$/Studio/Help/Gestures=Plays the gestures in this file in the dialog.",
     nullptr, &CommandLine::gestures},
    {"export", kFile,
     "$$$/Studio/Help/Export=Exports the mosaic; the ending selects the format: .svg, .png or "
     ".pdf. Can be repeated.",
     nullptr, nullptr, &CommandLine::exports},
    {"record", kFile, "$$$/Studio/Help/Record=Writes the values that the dialog returned, as JSON.",
     nullptr, &CommandLine::record},
    {"preset", kName,
     "$$$/Studio/Help/Preset=Enters the values of this preset in the dialog. On the console it "
     "also confirms the dialog, unless there are gestures.",
     nullptr, &CommandLine::preset},
    {"image", kId,
     "$$$/Studio/Help/Image=Turns the image with this ID in an SVG drawing into a mosaic and "
     "exports the drawing with it. Can be repeated.",
     nullptr, nullptr, &CommandLine::images},
    {"screenshot", kFile, "$$$/Studio/Help/Screenshot=Writes a screenshot of the dialog, as PNG.",
     nullptr, &CommandLine::dialogScreenshot},
    {"screenshot-window", kFile,
     "$$$/Studio/Help/ScreenshotWindow=Writes a screenshot of the window, as PNG.", nullptr,
     &CommandLine::windowScreenshot},
    {"size-unknown", nullptr,
     "$$$/Studio/Help/SizeUnknown=Ignores the resolution in the picture's file, so that its size "
     "is unknown.",
     &CommandLine::isSizeUnknown},
    {"state", kFile,
     "$$$/Studio/Help/State=Keeps the last choices in this file instead of in your settings.",
     nullptr, &CommandLine::state},
    {"language", kCode,
     "$$$/Studio/Help/Language=Uses this language, such as \"de\", instead of the environment's.",
     nullptr, &CommandLine::language},
    {"theme", kTheme, "$$$/Studio/Help/Look=Selects the theme: light, dark or system.", nullptr,
     &CommandLine::theme},
    {"quiet", nullptr, "$$$/Studio/Help/Quiet=Prints only errors.", &CommandLine::isQuiet},
    {"help", nullptr, "$$$/Studio/Help/Help=Shows this help.", &CommandLine::showHelp},
    {"version", nullptr, "$$$/Studio/Help/Version=Prints the version.", &CommandLine::showVersion},
};

// Qt does not wrap the description.
constexpr const char* kDescription =
    "$$$/Studio/Help/Description="
    "Opens the picture in a window. With --gestures, --export or --record it shows\n"
    "the dialog \"Create Tesserae\" without that window, builds the mosaic, writes the\n"
    "files and ends. With screenshots alone it writes these and ends.\n"
    "\n"
    "Exit status: 0 after OK; 1 if the dialog or the mosaic was cancelled, in which\n"
    "case nothing is written; 2 after an error, with one line on the standard error\n"
    "output.";

void Describe(QCommandLineParser& parser) {
  parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
  parser.setApplicationDescription('\n' + Text(kDescription));
  parser.addPositionalArgument("picture",
                               Text("$$$/Studio/Help/Picture=The picture to turn into a mosaic."),
                               Text("$$$/Studio/Help/PictureName=[PICTURE]"));
  for (const Option& option : kOptions)
    parser.addOption({option.name, Text(option.help), Text(option.value)});
}

/// The values that were given for an option.
QStringList ValuesOf(const QCommandLineParser& parser, const Option& option) {
  QStringList values = parser.values(option.name);
  if (parser.isSet(option.name) && (values.isEmpty() || values.contains(QString()))) {
    throw StudioError("$$$/Studio/Line/NeedsValue=%1 needs a value; see --help",
                      QString("--") + option.name);
  }
  if (option.text && values.size() > 1) {
    throw StudioError("$$$/Studio/Line/GivenTwice=%1 is given twice", QString("--") + option.name);
  }
  return values;
}

/// Inkscape adds options of its own, which differ between its versions and are ignored.
CommandLine FromInkscape(const QStringList& arguments) {
  CommandLine line;
  line.isFromInkscape = line.isQuiet = true;
  for (const QString& argument : arguments.mid(1)) {
    const QString value = argument.section('=', 1);
    if (argument.startsWith("--id=")) line.selected << value;
    if (argument.startsWith("--gestures=")) line.gestures = value;
    if (!argument.startsWith("--")) line.picture = argument;
  }
  return line;
}

}  // namespace

CommandLine CommandLine::Parse(const QStringList& arguments) {
  if (arguments.contains("--inkscape=true")) return FromInkscape(arguments);
  QCommandLineParser parser;
  Describe(parser);
  const bool isUnderstood = parser.parse(arguments);
  if (const QStringList unknown = parser.unknownOptionNames(); !unknown.isEmpty()) {
    throw StudioError("$$$/Studio/Line/UnknownOption=unknown option %1; see --help",
                      "--" + unknown.front());
  }
  CommandLine line;
  for (const Option& option : kOptions) {
    if (option.flag) {
      line.*option.flag = parser.isSet(option.name);
    } else if (const QStringList values = ValuesOf(parser, option); option.text) {
      line.*option.text = values.value(0);
    } else {
      line.*option.list = values;
    }
  }
  if (!isUnderstood) {
    QString reason = parser.errorText();  // a sentence by Qt
    if (reason.endsWith('.')) reason.chop(1);
    throw StudioError(reason);
  }
  const QStringList pictures = parser.positionalArguments();
  if (pictures.size() > 1)
    throw StudioError("$$$/Studio/Line/TwoPictures=more than one picture is given");
  if (pictures.contains(QString()))
    throw StudioError("$$$/Studio/Line/EmptyName=the picture's name is empty");
  line.picture = pictures.value(0);
  if (!line.theme.isEmpty() && !qtui::ThemeNamed(line.theme)) {
    throw StudioError("$$$/Studio/Line/Theme=--theme is light, dark or system, not %1", line.theme);
  }
  if (!line.preset.isEmpty() && line.picture.isEmpty())
    throw StudioError("$$$/Studio/Line/WhichPicture=no picture is given; see --help");
  if (!line.images.isEmpty() && line.picture.isEmpty())
    throw StudioError("$$$/Studio/Line/WhichDrawing=no drawing is given; see --help");
  if (line.images.removeDuplicates() > 0)
    throw StudioError("$$$/Studio/Line/ImageTwice=--image is given twice for the same image");
  return line;
}

CommandLine::Windows CommandLine::ShownWindows() const {
  const bool hasScreenshots = !Screenshots().isEmpty();
  const bool hasOutputs = isFromInkscape || !exports.isEmpty() || !record.isEmpty();
  if (gestures.isEmpty() && !hasOutputs)
    return hasScreenshots ? Windows::kForScreenshots : Windows::kStudio;
  if (gestures.isEmpty() && preset.isEmpty()) return Windows::kDialogs;
  return hasScreenshots ? Windows::kScripted : Windows::kNone;
}

QStringList CommandLine::Screenshots() const {
  QStringList screenshots{dialogScreenshot, windowScreenshot};
  screenshots.removeAll({});
  return screenshots;
}

QString CommandLine::HelpText() {
  QCommandLineParser parser;
  Describe(parser);
  return parser.helpText();
}
