#pragma once

#include <QFile>
#include <QString>
#include <QStringList>
#include <filesystem>
#include <memory>
#include <vector>

/// The output files of one run. Each is a temporary file beside its final name, which Commit
/// renames, so a run that fails or is stopped changes no file. Names are texts by FileName.
class OutputSet {
 public:
  ~OutputSet();

  /// Creates the temporary file at once, so that an output that cannot be written is reported
  /// before the work. The set owns the device. Throws StudioError, also if the file is already an
  /// output or protected.
  QIODevice& Add(const QString& name);

  /// Makes Add refuse this file, because the run reads it.
  void Protect(const QString& name);

  /// Synchronises all files with the disk, then renames them to their final names. Throws
  /// StudioError; all files are then as before.
  void Commit();

 private:
  struct Output {
    QFile device;                  // its object name is the name that the user gave
    std::filesystem::path place;   // the final path, with links resolved
    std::filesystem::path draft;   // the temporary file, in the same folder
    std::filesystem::path former;  // the file that had the final path, during Commit; may be empty
  };

  void TakePlace(Output& output);
  void PutBack(Output& output);

  std::vector<std::unique_ptr<Output>> outputs;
  std::vector<Output*> placed;  // during Commit
  QStringList taken;
};

/// Writes all bytes to a device of an OutputSet or to a QBuffer. Throws StudioError, with the
/// device's object name as the file's name and with the reason from errno.
void WriteAll(QIODevice& device, QByteArrayView bytes);
