#pragma once

#include <QElapsedTimer>
#include <QString>
#include <boost/core/noncopyable.hpp>

/// Keeps the error output for this program's own lines: what libraries and child processes write
/// there from now on is dropped. With a sanitizer it is shown, because reports go there too.
void SilenceLibraries();

/// Writes a text to the standard output at once. Throws StudioError when it cannot be written.
void Print(const QString& text);
void PrintBytes(const QByteArray& bytes);

/// Writes the program's name and the message to the error output as one line; control characters
/// in it are escaped.
void PrintError(const QString& text);

/// Writes a sentence for another program to show to the error output, as one line.
void PrintSentence(const QString& text);

/// Shows the progress of a job in a line on the error output, if that is a terminal and the job
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
