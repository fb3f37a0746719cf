#pragma once

#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>
#include <functional>

/// What the window shows before there is a picture: how to get one onto the page.
class StartPage final : public QWidget {
 public:
  /// `openFile` is called for a picture of the list, `open` for the button.
  StartPage(std::function<void()> open, std::function<void(const QString&)> openFile);

  void ShowRecent(const QStringList& paths);
  /// Whether something that can be dropped is over the window.
  void SetInviting(bool isInviting);

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
  bool isInvited = false;
};
