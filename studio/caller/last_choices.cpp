#include "studio/caller/last_choices.h"

#include <QStandardPaths>

#include "studio/base/file_name.h"
#include "studio/base/output.h"

constexpr qint64 kLargestFile = 1 << 20;

LastChoices::LastChoices(const QString& namedPath)
    : isNamed(!namedPath.isEmpty()),
      path(isNamed ? namedPath
                   : QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
                         "/choices.json") {}

std::optional<MosaicChoices> LastChoices::Load(
    const std::function<void(const StudioError&)>& warn) const try {
  return saved ? saved : Read();
} catch (const StudioError& error) {
  if (isNamed) throw;
  warn(error);
  return std::nullopt;
}

std::optional<MosaicChoices> LastChoices::Read() const try {
  std::error_code error;
  if (!exists(SystemPath(path), error)) return std::nullopt;
  return ChoicesFromJson(ReadFile(path, kLargestFile));
} catch (const StudioError& error) {
  throw StudioError("$$$/Studio/Choices/Unreadable=the last choices in %1 cannot be read: %2", path,
                    QString(error.what()));
}

void LastChoices::Save(const MosaicChoices& choices) {
  saved = choices;
  if (isNamed) Read();  // throws when it is another kind of file, which must not be overwritten
  std::error_code error;
  create_directories(SystemPath(path).parent_path(), error);
  OutputSet output;
  WriteAll(output.Add(path), ToJson(choices, Fields::kChoices));
  output.Commit();
}
