#include "studio/caller/kept_choices.h"

#include <QStandardPaths>

#include "platform/nrvcore/file.h"
#include "studio/base/output.h"
#include "studio/base/studio_error.h"

namespace {

constexpr size_t kLargestFile = 1 << 24;

}  // namespace

void KeptChoices::AddMosaic(const MosaicChoices& choices, const DialogEntries& entries) {
  last = choices;
  const DialogEntries added = EntriesForOtherPictures(entries, choices);
  std::erase(recent, added);
  recent.insert(recent.begin(), added);
  if (recent.size() > kMostRecent) recent.resize(kMostRecent);
}

const DialogEntries& KeptChoices::Preset(const QString& name) const {
  if (const auto found = presets.find(name); found != presets.end()) return found->second;
  QStringList names;
  for (const auto& [known, entries] : presets) names << known;
  if (names.isEmpty())
    throw StudioError("$$$/Studio/Preset/NoneSaved=there is no preset %1; none is saved yet", name);
  throw StudioError("$$$/Studio/Preset/Unknown=there is no preset %1; there are: %2", name,
                    names.join(", "));
}

ChoicesFile::ChoicesFile(const QString& namedPath)
    : isNamed(!namedPath.isEmpty()),
      path(isNamed ? namedPath
                   : QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
                         "/choices.json") {}

KeptChoices ChoicesFile::Load() const {
  constexpr auto kUnreadable = "$$$/Studio/Choices/Unreadable=the choices in %1 cannot be read: %2";
  std::error_code error;
  if (!exists(SystemPath(path), error)) return {};
  try {
    return KeptChoicesFromJson(
        nrvcore::ReadFile(SystemPath(path), nrvcore::FileKind::kRegular, kLargestFile));
  } catch (const nrvcore::FileError& failure) {
    throw StudioError(kUnreadable, path, FileName(failure.Reason()));
  } catch (const StudioError& failure) {
    throw StudioError(kUnreadable, path, QString(failure.what()));
  }
}

void ChoicesFile::Change(const std::function<void(KeptChoices&)>& change) const {
  KeptChoices kept = Load();
  change(kept);
  std::error_code error;
  create_directories(SystemPath(path).parent_path(), error);
  OutputSet output;
  WriteAll(output.Add(path), ToJson(kept));
  output.Commit();
}
