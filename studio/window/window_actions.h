#pragma once

#include <QAction>
#include <QMainWindow>
#include <QMenu>

/// What can be done in the window: its actions, and where they stand in menus and toolbar. They
/// belong to the window.
struct WindowActions {
  explicit WindowActions(QMainWindow& window);

  QAction* open;
  QAction* placeUnknown;
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
  QMenu* recent;
  QAction* zoom;  // on the toolbar; its text is the present zoom
};
