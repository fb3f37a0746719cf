#pragma once

#include <QElapsedTimer>
#include <QString>
#include <boost/core/noncopyable.hpp>

/// Reserves the error output for this program: text that libraries and child processes write to it
/// from now on is dropped, except in a build with a sanitizer, whose reports go there too.
void SilenceLibraries();

/// Writes to the standard output and flushes it. Throws StudioError.
void Print(const QString& text);
void PrintBytes(const QByteArray& bytes);

/// Writes the program's name and the text to the error output as one line, with control characters
/// escaped.
void PrintError(const QString& text);

/// The same without the program's name, for a text that another program shows.
void PrintSentence(const QString& text);

/// Shows the progress of a job on one line of the error output if that is a terminal and the job
/// takes longer than half a second. The destructor erases the line.
class ProgressLine : boost::noncopyable {
 public:
  explicit ProgressLine(bool isWanted);
  ~ProgressLine();

  void Show(int done, int all);

 private:
  const bool isTerminal;
  QElapsedTimer sinceStart;
  qint64 nextTime;  // in milliseconds since the start
  bool isShown = false;
};
