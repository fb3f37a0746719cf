#include "studio/window/window_actions.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QRegularExpression>
#include <QToolBar>
#include <QToolButton>

#include "platform/qt/theme.h"
#include "studio/base/text.h"
#include "studio/window/settings.h"

namespace {

struct Row {
  QAction* WindowActions::*action;
  const char* name;
  const char* caption;
  const char* tip;
  const char* shortcuts;       // separated by "; "
  const char* icon = nullptr;  // in resources/icons
  bool onlyLooks = false;      // also while the dialog "Create Tesserae" is open
};

constexpr Row kRows[] = {
    {&WindowActions::open, "open", "$$$/Studio/Menu/Open=&Open Picture…",
     "$$$/Studio/Tip/Open=Place a picture on the artboard", "Ctrl+O", "open"},
    {&WindowActions::exportMosaic, "export", "$$$/Studio/Menu/Export=&Export…",
     "$$$/Studio/Tip/Export=Save the mosaic as SVG, PDF or PNG", "Ctrl+E", "export"},
    {&WindowActions::exportAgain, "exportAgain", "$$$/Studio/Menu/ExportAgain=Export A&gain",
     "$$$/Studio/Tip/ExportAgain=Export the mosaic to the same file again, without asking",
     "Ctrl+S"},
    {&WindowActions::quit, "quit", "$$$/Studio/Menu/Quit=&Quit", "", "Ctrl+Q"},
    {&WindowActions::undo, "undo", "$$$/Studio/Menu/Undo=&Undo", "$$$/Studio/Tip/Undo=Undo",
     "Ctrl+Z", "undo"},
    {&WindowActions::redo, "redo", "$$$/Studio/Menu/Redo=&Redo", "$$$/Studio/Tip/Redo=Redo",
     "Ctrl+Shift+Z; Ctrl+Y", "redo"},
    {&WindowActions::copy, "copy", "$$$/Studio/Menu/Copy=&Copy",
     "$$$/Studio/Tip/Copy=Copy the mosaic as SVG and as a picture", "Ctrl+C"},
    {&WindowActions::paste, "paste", "$$$/Studio/Menu/Paste=&Paste",
     "$$$/Studio/Tip/Paste=Place the picture from the clipboard", "Ctrl+V"},
    {&WindowActions::tesserae, "createTesserae", "$$$/Studio/Menu/CreateTesserae=&Create Tesserae…",
     "$$$/Studio/Tip/CreateTesserae=Turn the picture into a mosaic", "Ctrl+T", "tesserae"},
    {&WindowActions::tesseraeAgain, "createTesseraeAgain",
     "$$$/Studio/Menu/CreateAgain=Create Tesserae A&gain…",
     "$$$/Studio/Tip/CreateAgain=Start with your last choices for this picture", "Ctrl+Shift+T"},
    {&WindowActions::zoomIn, "zoomIn", "$$$/Studio/Menu/ZoomIn=Zoom &In",
     "$$$/Studio/Tip/ZoomIn=Zoom in", "Ctrl++; Ctrl+=", "zoom-in", true},
    {&WindowActions::zoomOut, "zoomOut", "$$$/Studio/Menu/ZoomOut=Zoom &Out",
     "$$$/Studio/Tip/ZoomOut=Zoom out", "Ctrl+-", "zoom-out", true},
    {&WindowActions::actualSize, "actualSize", "$$$/Studio/Menu/ActualSize=&Actual Size", "",
     "Ctrl+1", nullptr, true},
    {&WindowActions::fit, "fit", "$$$/Studio/Menu/Fit=&Fit in Window",
     "$$$/Studio/Tip/Fit=Fit in the window", "Ctrl+0", "fit", true},
    {&WindowActions::preview, "previewWhileChoosing",
     "$$$/Studio/Menu/Preview=&Preview While Choosing", "", ""},
    {&WindowActions::about, "about", "$$$/Studio/Menu/About=&About Tesserae Studio", "", ""},
    {&WindowActions::zoom, "zoom", "$$$/Studio/Menu/Zoom=&Zoom", "$$$/Studio/Tip/Zoom=Zoom", "",
     nullptr, true},
    {&WindowActions::compare, "compare", "$$$/Studio/Menu/Compare=Co&mpare",
     "$$$/Studio/Tip/Compare=Hold to see the picture without the mosaic", "F8", "picture", true},
};

/// "Zoom in (Ctrl++)"
QString ToolTip(const Row& row, const QAction& action) {
  const QString keys = action.shortcut().toString(QKeySequence::NativeText);
  return keys.isEmpty() ? Text(row.tip)
                        : Text("$$$/Studio/Tip/WithKeys=%1 (%2)", Text(row.tip), keys);
}

/// The caption as a button shows it.
QString ButtonText(QString caption) {
  return caption.remove(QRegularExpression("\\(&.\\)|&|\\s*…"));
}

void MakeAction(QMainWindow& window, WindowActions& actions, const Row& row) {
  auto* const action = new QAction(Text(row.caption), &window);
  action->setObjectName(row.name);
  action->setIconText(ButtonText(action->text()));
  action->setShortcuts(QKeySequence::listFromString(row.shortcuts));
  if (*row.tip) action->setToolTip(ToolTip(row, *action));
  if (row.icon) action->setIcon(qtui::ThemedIcon(row.icon));
  action->setIconVisibleInMenu(false);
  // Zooming works in the dialog's window too.
  row.onlyLooks ? action->setShortcutContext(Qt::ApplicationShortcut) : actions.Block(action);
  actions.*row.action = action;
}

/// Each theme is kept when it is chosen.
void FillThemeMenu(QMenu& menu) {
  auto* const group = new QActionGroup(&menu);
  group->setObjectName("themes");
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

void FillMenus(QMainWindow& window, WindowActions& actions) {
  QMenuBar& bar = *window.menuBar();
  QMenu* const file = bar.addMenu(Text("$$$/Studio/Menu/File=&File"));
  file->addAction(actions.open);
  actions.recent = file->addMenu(Text("$$$/Studio/Menu/Recent=Open &Recent"));
  actions.recent->setObjectName("recent");
  file->addSeparator();
  file->addActions({actions.exportMosaic, actions.exportAgain});
  file->addSeparator();
  file->addAction(actions.quit);

  QMenu* const edit = bar.addMenu(Text("$$$/Studio/Menu/Edit=&Edit"));
  edit->addActions({actions.undo, actions.redo});
  edit->addSeparator();
  edit->addActions({actions.copy, actions.paste});

  QMenu* const object = bar.addMenu(Text("$$$/Studio/Menu/Object=O&bject"));
  object->addActions({actions.tesserae, actions.tesseraeAgain});
  object->addSeparator();
  actions.presets = object->addMenu(Text("$$$/Studio/Menu/Presets=&Presets"));
  actions.presets->setObjectName("presets");

  QMenu* const view = bar.addMenu(Text("$$$/Studio/Menu/View=&View"));
  view->addActions({actions.zoomIn, actions.zoomOut, actions.actualSize, actions.fit});
  view->addSeparator();
  view->addAction(actions.preview);
  view->addSeparator();
  QMenu* const themes = view->addMenu(Text("$$$/Studio/Menu/Theme=&Theme"));
  FillThemeMenu(*themes);

  QMenu* const help = bar.addMenu(Text("$$$/Studio/Menu/Help=&Help"));
  help->addAction(actions.about);
  for (const QMenu* menu : {actions.recent, actions.presets, themes})
    actions.Block(menu->menuAction());
}

/// The buttons that a newcomer looks for say what they do.
void ShowText(QToolBar& bar, QAction* action) {
  auto* const button = qobject_cast<QToolButton*>(bar.widgetForAction(action));
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
}

QToolBar& FillToolBar(QMainWindow& window, WindowActions& actions) {
  QToolBar* const bar = window.addToolBar(Text("$$$/Studio/Menu/ToolBar=Toolbar"));
  bar->setObjectName("toolBar");
  bar->setMovable(false);
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  const int side = window.fontMetrics().height() * 4 / 3;
  bar->setIconSize({side, side});
  bar->addAction(actions.open);
  bar->addSeparator();
  bar->addAction(actions.tesserae);
  bar->addSeparator();
  bar->addActions({actions.undo, actions.redo});
  auto* const gap = new QWidget;
  gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  bar->addWidget(gap);
  bar->addActions({actions.compare, actions.zoomOut, actions.zoom, actions.zoomIn, actions.fit});
  bar->addSeparator();
  bar->addAction(actions.exportMosaic);
  for (QAction* action : {actions.open, actions.tesserae, actions.exportMosaic}) {
    ShowText(*bar, action);
  }
  auto* const zoom = qobject_cast<QToolButton*>(bar->widgetForAction(actions.zoom));
  // Not InstantPopup, which offers assistive technology no action. Queued, because the menu runs an
  // event loop, and the caller of the action waits for the reply.
  QObject::connect(actions.zoom, &QAction::triggered, zoom, &QToolButton::showMenu,
                   Qt::QueuedConnection);
  zoom->setToolButtonStyle(Qt::ToolButtonTextOnly);
  zoom->setMinimumWidth(zoom->fontMetrics().horizontalAdvance("0000.0 %") + side);
  return *bar;
}

/// Compares while the user holds a button or a key, which works in every window of the application.
class HoldToCompare final : public QObject {
 public:
  /// `compare` is called with true when the user begins to hold either and with false when both are
  /// released.
  HoldToCompare(QAbstractButton& heldButton, Qt::Key heldKey, std::function<void(bool)> whenHeld)
      : button(heldButton), key(heldKey), compare(std::move(whenHeld)) {
    connect(&button, &QAbstractButton::pressed, this, [this] { compare(true); });
    connect(&button, &QAbstractButton::released, this, [this] { compare(isKeyHeld); });
    QCoreApplication::instance()->installEventFilter(this);
  }

  bool eventFilter(QObject*, QEvent* event) override {
    // Another window that takes the focus also takes the release of the key.
    if (event->type() == QEvent::WindowDeactivate && isKeyHeld) Hold(false);
    const bool isShortcut = event->type() == QEvent::ShortcutOverride;
    const bool isPress = event->type() == QEvent::KeyPress;
    if (!isShortcut && !isPress && event->type() != QEvent::KeyRelease) return false;
    const auto& keyEvent = static_cast<const QKeyEvent&>(*event);
    if (keyEvent.key() != key) return false;
    // A modifier that is pressed after the key does not keep the release from ending the
    // comparison.
    if ((isShortcut || isPress) && keyEvent.modifiers() != Qt::NoModifier) return false;
    if (isShortcut) {
      event->accept();  // the key then arrives as a press and a release instead of a shortcut
    } else if (!keyEvent.isAutoRepeat() && isPress != isKeyHeld &&
               (!isPress || button.isEnabled())) {
      Hold(isPress);
    }
    return true;
  }

 private:
  void Hold(bool isHeld) {
    isKeyHeld = isHeld;
    compare(isKeyHeld || button.isDown());
  }

  QAbstractButton& button;
  const Qt::Key key;
  const std::function<void(bool)> compare;
  bool isKeyHeld = false;
};

}  // namespace

WindowActions::WindowActions(QMainWindow& window, std::function<void(bool)> comparing)
    : blocked(new QActionGroup(&window)) {
  blocked->setExclusionPolicy(QActionGroup::ExclusionPolicy::None);
  for (const Row& row : kRows) MakeAction(window, *this, row);
  preview->setCheckable(true);
  preview->setChecked(settings::kPreviewsWhileChoosing.Get());
  QObject::connect(preview, &QAction::toggled,
                   [](bool previews) { settings::kPreviewsWhileChoosing.Set(previews); });
  about->setMenuRole(QAction::AboutRole);
  quit->setMenuRole(QAction::QuitRole);
  FillMenus(window, *this);
  QToolBar& bar = FillToolBar(window, *this);
  holdToCompare =
      std::make_unique<HoldToCompare>(*qobject_cast<QToolButton*>(bar.widgetForAction(compare)),
                                      compare->shortcut()[0].key(), std::move(comparing));
}
