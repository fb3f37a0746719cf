#pragma once

#include <QMenu>

#include "studio/caller/kept_choices.h"

class StudioWindow;

/// Fills the submenu Object > Presets each time it opens: with the named presets and the entries of
/// the last mosaics from the file of choices. Owned by the window; used on the user-interface
/// thread.
class PresetMenu {
 public:
  /// All must outlive it.
  PresetMenu(StudioWindow& studioWindow, QMenu& filledMenu, const ChoicesFile& choicesFile);

 private:
  void Fill();
  void AddEntries(const QString& caption, const DialogEntries& entries);
  void Save();
  void Manage();

  StudioWindow& window;
  QMenu& menu;
  const ChoicesFile& file;
};
