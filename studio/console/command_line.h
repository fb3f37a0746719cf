#pragma once

#include <QString>
#include <QStringList>

/// The arguments of one run, parsed by main. A text that was not given is empty.
struct CommandLine {
  bool showHelp = false;
  bool showVersion = false;
  bool isQuiet = false;
  bool isSizeUnknown = false;
  QString picture;
  QString gestures;
  QString preset;
  QStringList exports;
  QStringList images;  // IDs of images in the drawing `picture`; empty for a picture
  bool isFromInkscape = false;
  QStringList selected;  // IDs of the objects that are selected in Inkscape
  QString record;
  QString state;     // empty for the file in the user's configuration folder
  QString language;  // a code such as "de"; empty for the environment's language
  QString theme;     // "light", "dark", "system"; empty for the one chosen in the window
  QString dialogScreenshot;
  QString windowScreenshot;

  enum class Windows {
    kStudio,          // the studio's main window
    kDialogs,         // dialogs that the user answers
    kScripted,        // dialogs that gestures or a preset answer
    kForScreenshots,  // a dialog that is cancelled, or the main window, to take screenshots
    kNone,            // none: gestures or a preset answer dialogs without windows
  };
  /// The windows of this run if a display is available.
  Windows ShownWindows() const;

  /// Whether the mosaics are of images in an SVG document, the drawing `picture`.
  bool UsesDrawing() const { return isFromInkscape || !images.isEmpty(); }

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
