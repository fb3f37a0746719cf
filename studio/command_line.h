#pragma once

#include <QString>
#include <QStringList>

/// What the user asked for on the command line.
struct CommandLine {
  bool showHelp = false;
  bool showVersion = false;
  bool isQuiet = false;
  QString picture;
  QString gestures;  // empty when there are none
  QStringList exports;
  QString record;    // empty for none
  QString state;     // empty for the default place
  QString language;  // as in "de"; empty for the user's own

  /// `arguments` without the program's name. Throws StudioError for what cannot be understood.
  static CommandLine Parse(const QStringList& arguments);

  static QString HelpText();
};
