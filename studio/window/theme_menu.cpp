#include "studio/window/theme_menu.h"

#include <QActionGroup>

#include "studio/base/text.h"
#include "studio/window/settings.h"

void FillThemeMenu(QMenu& menu) {
  auto* const group = new QActionGroup(&menu);
  const std::pair<qtui::Theme, const char*> themes[] = {
      {qtui::Theme::kSystem, "$$$/Studio/Menu/ThemeSystem=Like the &System"},
      {qtui::Theme::kLight, "$$$/Studio/Menu/ThemeLight=&Light"},
      {qtui::Theme::kDark, "$$$/Studio/Menu/ThemeDark=&Dark"},
  };
  for (const auto& [theme, caption] : themes) {
    QAction* const action = menu.addAction(Text(caption), [chosen = theme] {
      settings::ChooseTheme(chosen);
      qtui::ApplyTheme(chosen);
    });
    action->setCheckable(true);
    action->setChecked(theme == settings::ChosenTheme());
    group->addAction(action);
  }
}
