#pragma once

#include <QFile>
#include <QString>
#include <QStringList>
#include <filesystem>
#include <memory>
#include <vector>

/// The files that one run writes. Each is written beside its place and takes it only on Commit, so
/// a run that fails or is stopped leaves everything as it was. Names are as FileName makes them.
class OutputSet {
 public:
  ~OutputSet();

  /// Opens a file for writing right away, so that a place that cannot be written is known before
  /// any work is spent on it. Throws StudioError; also when the path is already in the set.
  /// The set owns the device.
  QIODevice& Add(const QString& name);

  /// Refuses this path from now on, because the run still reads it.
  void Protect(const QString& name);

  /// Puts all files in their places, after all of them were written out in full. Throws
  /// StudioError when that fails; all places are then as before.
  void Commit();

 private:
  struct Output {
    QFile device;                  // its object name is the name that the user gave
    std::filesystem::path place;   // where it goes, behind all links
    std::filesystem::path draft;   // where it is written, in the same folder
    std::filesystem::path former;  // what was in its place, during Commit; empty for nothing
  };

  void TakePlace(Output& output);
  void PutBack(Output& output);

  std::vector<std::unique_ptr<Output>> outputs;
  std::vector<Output*> placed;  // during Commit
  QStringList taken;
};

/// Writes all of it to a device of an OutputSet, or one that cannot fail. Throws StudioError with
/// the device's object name, which is the file's, and the reason.
void WriteAll(QIODevice& device, QByteArrayView bytes);
