#pragma once

#include <QString>
#include <QStringList>

/// What the user asked for on the command line.
struct CommandLine {
  bool showHelp = false;
  bool showVersion = false;
  bool isQuiet = false;
  bool isSizeUnknown = false;
  QString picture;
  QString gestures;  // empty when there are none
  QStringList exports;
  QString record;         // empty for none
  QString state;          // empty for the default place
  QString language;       // as in "de"; empty for the user's own
  QString theme;          // "light", "dark", "system"; empty for the one chosen in the window
  QString dialogPicture;  // empty for none
  QString windowPicture;  // empty for none

  /// Whether the user wants to work in the window, rather than have something done.
  bool WantsWindow() const;
  /// Whether nothing is wanted but pictures of what opens.
  bool WantsPicturesOnly() const;
  /// Whether a dialog or window comes up, were it only to be photographed.
  bool ShowsWindows() const;

  /// `arguments` without the program's name. Throws StudioError for what cannot be understood.
  static CommandLine Parse(const QStringList& arguments);

  /// The pictures that are wanted of what opens.
  QStringList Pictures() const;

  static QString HelpText();
};
