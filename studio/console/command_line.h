#pragma once

#include <QString>
#include <QStringList>

/// What the user asked for on the command line. A text that was not given is empty.
struct CommandLine {
  bool showHelp = false;
  bool showVersion = false;
  bool isQuiet = false;
  bool isSizeUnknown = false;
  QString picture;
  QString gestures;
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

  /// Whether the user wants to work in the window, rather than have something done.
  bool WantsWindow() const;
  /// Whether nothing is wanted but screenshots of what opens.
  bool WantsScreenshotsOnly() const;
  /// Whether a person answers the dialogs that open.
  bool IsForPerson() const;
  /// Whether a dialog or window opens, if only for a screenshot.
  bool ShowsWindows() const;

  /// The program's arguments, its name first. With "--inkscape=true" among them they are those that
  /// Inkscape passes to an extension: "--id=ID" for each selected object, the extension's
  /// parameters, of which "--gestures=FILE" counts, and the document. Throws StudioError for what
  /// cannot be understood.
  static CommandLine Parse(const QStringList& arguments);

  /// The screenshots that are wanted.
  QStringList Screenshots() const;

  /// Needs a QCoreApplication, for the program's name.
  static QString HelpText();
};
