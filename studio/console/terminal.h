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

/// Writes the program's name and what is wrong to the error output, as one line whatever the names
/// in it hold.
void PrintError(const QString& text);

/// Writes a sentence for another program to show to the error output, as one line.
void PrintSentence(const QString& text);

/// Shows on the error output how far a long piece of work is. Stays silent in the first half second
/// and when the error output is no terminal; the line is gone at the end.
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
