#include "studio/window/preset_menu.h"

#include <QAction>

#include "studio/base/studio_error.h"
#include "studio/window/preset_dialogs.h"
#include "studio/window/studio_window.h"

namespace {

constexpr int kMostColumns = 48;  // of a name in the menu, in characters

/// A text as a menu shows it, where "&" would mark a mnemonic.
QString Caption(const QMenu& menu, const QString& text) {
  const QFontMetrics metrics = menu.fontMetrics();
  return metrics.elidedText(text, Qt::ElideRight, metrics.averageCharWidth() * kMostColumns)
      .replace('&', "&&");
}

QString SaveFailure() {
  return Text("$$$/Studio/Error/Presets=The presets cannot be saved.");
}

}  // namespace

PresetMenu::PresetMenu(StudioWindow& studioWindow, QMenu& filledMenu,
                       const ChoicesFile& choicesFile)
    : window(studioWindow), menu(filledMenu), file(choicesFile) {
  menu.setToolTipsVisible(true);
  QObject::connect(&menu, &QMenu::aboutToShow, &window, [this] { Fill(); });
}

void PresetMenu::Fill() {
  menu.clear();
  QAction* const save =
      menu.addAction(Text("$$$/Studio/Menu/SavePreset=&Save Preset…"), &window, [this] { Save(); });
  save->setObjectName("savePreset");
  save->setEnabled(window.EntriesOfMosaic().has_value());
  QAction* const manage = menu.addAction(Text("$$$/Studio/Menu/ManagePresets=&Manage Presets…"),
                                         &window, [this] { Manage(); });
  manage->setObjectName("managePresets");
  KeptChoices kept;
  try {
    kept = file.Load();
  } catch (const StudioError&) {
    // Manage reports the reason.
  }
  menu.addSeparator();
  for (const auto& [name, entries] : kept.presets) AddEntries(name, entries);
  if (kept.recent.empty()) return;
  menu.addSection(Text("$$$/Studio/Menu/RecentMosaics=Recent Mosaics"));
  for (const DialogEntries& entries : kept.recent) AddEntries(DescriptionOf(entries), entries);
}

void PresetMenu::AddEntries(const QString& caption, const DialogEntries& entries) {
  QAction* const action =
      menu.addAction(Caption(menu, caption), &window, [this, entries] { window.Create(entries); });
  action->setToolTip(DescriptionOf(entries));  // the caption can be a name, or elided
  action->setEnabled(window.Shown() != nullptr);
}

void PresetMenu::Save() {
  window.Do(SaveFailure(), [this] {
    const std::optional<DialogEntries> entries = window.EntriesOfMosaic();
    const auto name = AskForPresetName(window, file.Load().presets, *entries);
    if (!name) return false;
    file.Change([&](KeptChoices& kept) {
      kept.presets.erase(*name);  // the case of the new name counts
      kept.presets.emplace(*name, *entries);
    });
    return true;
  });
}

void PresetMenu::Manage() {
  window.Do(SaveFailure(), [this] {
    const PresetChanges changes = AskForPresetChanges(window, file.Load().presets);
    if (changes.empty()) return false;
    file.Change([&](KeptChoices& kept) { Apply(changes, kept.presets); });
    return true;
  });
}
