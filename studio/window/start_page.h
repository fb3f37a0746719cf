#pragma once

#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>
#include <functional>

/// The content of StudioWindow before a picture is open: a place to drop one, a button that opens
/// one, and the recent pictures.
class StartPage final : public QWidget {
 public:
  /// `openFile` is called for a picture of the list, `open` for the button.
  StartPage(std::function<void()> open, std::function<void(const QString&)> openFile);

  void ShowRecent(const QStringList& paths);
  /// Whether the page shows that the dragged files can be dropped.
  void SetDropHighlight(bool highlighted);

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void TakeColors();

  const std::function<void(const QString&)> openFile;
  QWidget* const frame;
  QWidget* recent;
  QVBoxLayout* recentList;
  QList<QLabel*> faintLabels;
  bool isHighlighted = false;
};
