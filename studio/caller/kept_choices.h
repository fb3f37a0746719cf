#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "studio/caller/dialog_entries.h"
#include "studio/mosaic/mosaic_choices.h"

/// Orders the names of presets. Names that differ in case alone are the same.
struct PresetOrder {
  bool operator()(const QString& one, const QString& other) const {
    return one.compare(other, Qt::CaseInsensitive) < 0;
  }
};

/// What the studio keeps from one run to the next: the choices with which the next dialog starts,
/// and entries that the user can apply to any picture.
struct KeptChoices {
  using Presets = std::map<QString, DialogEntries, PresetOrder>;
  static constexpr size_t kMostRecent = 5;

  std::optional<MosaicChoices> last;  // as the last dialog returned them; a part of the fields
  std::vector<DialogEntries> recent;  // of the last mosaics, the latest first, each only once
  Presets presets;

  /// Adds a mosaic of these choices, from a dialog with these entries.
  void AddMosaic(const MosaicChoices& choices, const DialogEntries& entries);
  /// Throws StudioError, which names the presets that exist, when there is none of this name.
  const DialogEntries& Preset(const QString& name) const;
};

/// The JSON file with the kept choices. Every operation reads it anew, because other runs change it
/// too.
class ChoicesFile {
 public:
  /// The path that the user named; if empty, a file in the user's configuration folder.
  explicit ChoicesFile(const QString& namedPath);

  bool IsNamed() const { return isNamed; }

  /// Nothing is kept while there is no file. Throws StudioError when the file cannot be read or
  /// holds something else.
  KeptChoices Load() const;

  /// Writes what `change` makes of the kept choices, all or nothing. Throws StudioError; a file
  /// that Load refuses stays as it is.
  void Change(const std::function<void(KeptChoices&)>& change) const;

 private:
  bool isNamed;
  QString path;
};
