#include "studio/console/command_line.h"

#include <iterator>

#include "platform/qt/theme.h"
#include "studio/base/studio_error.h"

namespace {

struct Option {
  const char* name;
  void (*set)(CommandLine&);
};

struct ValueOption {
  const char* name;
  QString CommandLine::*value;
};

constexpr Option kOptions[] = {
    {"--help", [](CommandLine& line) { line.showHelp = true; }},
    {"--version", [](CommandLine& line) { line.showVersion = true; }},
    {"--quiet", [](CommandLine& line) { line.isQuiet = true; }},
    {"--size-unknown", [](CommandLine& line) { line.isSizeUnknown = true; }},
};

constexpr ValueOption kValueOptions[] = {
    {"--gestures", &CommandLine::gestures},
    {"--record", &CommandLine::record},
    {"--state", &CommandLine::state},
    {"--language", &CommandLine::language},
    {"--theme", &CommandLine::theme},
    {"--screenshot", &CommandLine::dialogPicture},
    {"--screenshot-window", &CommandLine::windowPicture},
};

bool TakeOption(CommandLine& line, const QString& name) {
  for (const Option& option : kOptions) {
    if (name != option.name) continue;
    option.set(line);
    return true;
  }
  return false;
}

bool TakeValue(CommandLine& line, const QString& name, const QString& value) {
  if (name == "--export") {
    line.exports << value;
    return true;
  }
  for (const ValueOption& option : kValueOptions) {
    if (name != option.name) continue;
    QString& place = line.*option.value;
    if (!place.isEmpty()) throw StudioError("$$$/Studio/Line/GivenTwice=%1 is given twice", name);
    place = value;
    return true;
  }
  return false;
}

bool WantsValue(const QString& name) {
  CommandLine scratch;
  return TakeValue(scratch, name, {});
}

}  // namespace

CommandLine CommandLine::Parse(const QStringList& arguments) {
  CommandLine line;
  bool onlyPaths = false;
  for (int i = 0; i < arguments.size(); ++i) {
    const QString& argument = arguments[i];
    if (onlyPaths || !argument.startsWith('-')) {
      if (!line.picture.isEmpty())
        throw StudioError("$$$/Studio/Line/TwoPictures=more than one picture is given");
      if (argument.isEmpty())
        throw StudioError("$$$/Studio/Line/EmptyName=the picture's name is empty");
      line.picture = argument;
      continue;
    }
    if (argument == "--") {
      onlyPaths = true;
      continue;
    }
    if (TakeOption(line, argument)) continue;

    const QString name = argument.section('=', 0, 0);
    if (!WantsValue(name))
      throw StudioError("$$$/Studio/Line/UnknownOption=unknown option %1; see --help", argument);
    const bool isJoined = name != argument;
    const QString value = isJoined ? argument.section('=', 1) : arguments.value(++i);
    if (value.isEmpty()) {
      throw StudioError("$$$/Studio/Line/NeedsValue=%1 needs a value; see --help", name);
    }
    TakeValue(line, name, value);
  }
  if (!line.theme.isEmpty() && !qtui::ThemeNamed(line.theme)) {
    throw StudioError("$$$/Studio/Line/Theme=--theme is light, dark or system, not %1", line.theme);
  }
  return line;
}

bool CommandLine::WantsWindow() const {
  return gestures.isEmpty() && exports.isEmpty() && record.isEmpty() && Pictures().isEmpty();
}

bool CommandLine::WantsPicturesOnly() const {
  return gestures.isEmpty() && exports.isEmpty() && record.isEmpty() && !Pictures().isEmpty();
}

bool CommandLine::ShowsWindows() const {
  return gestures.isEmpty() || !Pictures().isEmpty();
}

QStringList CommandLine::Pictures() const {
  QStringList pictures{dialogPicture, windowPicture};
  pictures.removeAll({});
  return pictures;
}

QString CommandLine::HelpText() {
  return R"(tesserae-studio [PICTURE] [OPTION]...

Opens its window, where there is a display. With one of the first three options it places
the picture, asks for a mosaic in the dialog "Create Tesserae", builds it, and ends. With
pictures of dialog or window alone it makes these, and ends.

  --gestures FILE   plays these gestures on the dialog, as a person would
  --export FILE     writes the mosaic, by the name's ending: .svg, .png or .pdf;
                    may be given more than once
  --record FILE     writes what the dialog gave back, as JSON
  --screenshot FILE, --screenshot-window FILE
                    writes what the dialog and the window look like, as PNG
  --size-unknown    places the picture as if its file did not say how large it is
  --state FILE      keeps the last choices here instead of in your settings
  --language CODE   speaks this language, as in "de", instead of your own
  --theme THEME     light, dark or system
  --quiet           prints nothing but errors
  --help, --version

Exit status: 0 after OK, 1 when the dialog or the building was cancelled and
nothing was written, 2 with a line on the error output when something is wrong.
)";
}
