#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "studio/caller/dialog_entries.h"
#include "studio/mosaic/mosaic_choices.h"

/// Orders the names of presets. Names that differ only in case are equal.
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

  std::optional<MosaicChoices> last;  // some fields of what the last dialog returned
  std::vector<DialogEntries> recent;  // of the last mosaics, without duplicates, the latest first
  Presets presets;
  std::string document = "{}";  // the JSON that was read; members that are not known here are kept

  /// Adds a mosaic: what the dialog returned, and its entries.
  void AddMosaic(const MosaicChoices& choices, const DialogEntries& entries);
  /// Throws StudioError, which names the existing presets, if there is none of this name.
  const DialogEntries& Preset(const QString& name) const;
};

/// An object with one line for each field, with the fields' names and order in memory. NaN and
/// infinity become null.
QByteArray RecordJson(const MosaicChoices& record);

/// The content of a file of choices.
QByteArray ToJson(const KeptChoices& kept);

/// The inverse of ToJson. Also reads version 1.0, an object with the fields of `last` alone. Throws
/// StudioError, with the reason alone, if the text is not JSON, or a field is missing or has a
/// value outside its range.
KeptChoices KeptChoicesFromJson(const std::string& json);

/// The JSON file with the kept choices. Each operation reads it again, because other processes can
/// change it.
class ChoicesFile {
 public:
  /// An empty path stands for "choices.json" in the user's configuration folder.
  explicit ChoicesFile(const QString& namedPath);

  bool IsNamed() const { return isNamed; }

  /// Empty if there is no file. Throws StudioError if the file cannot be read or has other content.
  KeptChoices Load() const;

  /// Applies `change` to the kept choices and replaces the file. Throws StudioError; the file is
  /// then unchanged, also if Load refuses it.
  void Change(const std::function<void(KeptChoices&)>& change) const;

 private:
  bool isNamed;
  QString path;
};
