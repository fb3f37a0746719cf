#include "studio/caller/last_choices.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "studio/base/output.h"

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
  if (!QFileInfo::exists(path)) return std::nullopt;
  if (!QFileInfo(path).isFile())
    throw StudioError("$$$/Studio/Write/NoFile=it is no ordinary file");
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) throw StudioError(ReasonText(file));
  return ChoicesFromJson(file.readAll());
} catch (const StudioError& error) {
  throw StudioError("$$$/Studio/Choices/Unreadable=the last choices in %1 cannot be read: %2", path,
                    QString(error.what()));
}

void LastChoices::Save(const MosaicChoices& choices) {
  saved = choices;
  if (isNamed) Read();  // throws when it is another kind of file, which must not be overwritten
  QDir().mkpath(QFileInfo(path).absolutePath());
  OutputSet output;
  WriteAll(output.Add(path), ChoicesToJson(choices).toStdString());
  output.Commit();
}
