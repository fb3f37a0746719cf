#pragma once

#include <QAction>
#include <QActionGroup>
#include <QMainWindow>
#include <QMenu>
#include <functional>
#include <memory>

/// What can be done in the window: its actions, and where they stand in menus and toolbar. They
/// belong to the window.
struct WindowActions {
  /// `comparing` is called with true when the user begins to hold the button Compare or its key, in
  /// any window of the application, and with false when both are released.
  WindowActions(QMainWindow& window, std::function<void(bool)> comparing);

  /// Disables and enables the action together with all that a dialog "Create Tesserae" blocks.
  void Block(QAction* action) { blocked->addAction(action); }

  /// All actions but those that only change the view. Disabling the group keeps the state of each.
  QActionGroup* const blocked;

  QAction* open;
  QAction* exportMosaic;
  QAction* exportAgain;
  QAction* quit;
  QAction* undo;
  QAction* redo;
  QAction* copy;
  QAction* paste;
  QAction* tesserae;
  QAction* tesseraeAgain;
  QAction* zoomIn;
  QAction* zoomOut;
  QAction* actualSize;
  QAction* fit;
  QAction* preview;
  QAction* about;
  QAction* compare;  // on the toolbar; its button and its key are held
  std::unique_ptr<QObject> holdToCompare;
  QMenu* recent;
  QMenu* presets;
  QAction* zoom;  // on the toolbar; its text is the present zoom
};
