#pragma once

#include <QString>
#include <QStringList>

/// What the user asked for on the command line, made in main. A text that was not given is empty.
struct CommandLine {
  bool showHelp = false;
  bool showVersion = false;
  bool isQuiet = false;
  bool isSizeUnknown = false;
  QString picture;
  QString gestures;
  QString preset;
  QStringList exports;
  QStringList images;  // of the drawing that `picture` names, by their IDs; empty for a picture
  bool isFromInkscape = false;
  QStringList selected;  // the IDs of the objects that are selected in Inkscape
  QString record;
  QString state;     // empty for the user's settings
  QString language;  // as in "de"; empty for the user's own
  QString theme;     // "light", "dark", "system"; empty for the one chosen in the window
  QString dialogScreenshot;
  QString windowScreenshot;

  enum class Windows {
    kStudio,          // the studio's window, for the user to work in
    kDialogs,         // dialogs, which the user answers
    kScripted,        // dialogs, which gestures or a preset answer
    kForScreenshots,  // what the screenshots are to show; the dialog is cancelled
    kNone,            // gestures or a preset answer dialogs that do not show
  };
  /// Which windows the run shows where there is a display.
  Windows ShownWindows() const;

  /// Parses the program's arguments, its name first. With "--inkscape=true" they are those that
  /// Inkscape passes to an extension: "--id=ID" for each selected object, the extension's
  /// parameters, of which "--gestures=FILE" is used, and the document. Throws StudioError for an
  /// unknown option, a missing value or options that exclude each other.
  static CommandLine Parse(const QStringList& arguments);

  /// The files of the screenshots that the user asked for.
  QStringList Screenshots() const;

  /// The text of --help. Needs a QCoreApplication, for the program's name.
  static QString HelpText();
};
