#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "studio/base/studio_error.h"
#include "studio/caller/record_json.h"

/// The file that keeps the choices from one run to the next.
class LastChoices {
 public:
  /// The place that the user named, or the one in the user's settings when there is none.
  explicit LastChoices(const QString& namedPath);

  /// What was saved last, or else what the file has; nothing when there is none yet. When it cannot
  /// be read, throws StudioError in a place that the user named; `warn` takes it otherwise.
  std::optional<MosaicChoices> Load(const std::function<void(const StudioError&)>& warn) const;

  /// Throws StudioError, also when the place that the user named holds anything else.
  void Save(const MosaicChoices& choices);

 private:
  std::optional<MosaicChoices> Read() const;

  bool isNamed;
  QString path;
  std::optional<MosaicChoices> saved;  // whether or not the file took it
};
