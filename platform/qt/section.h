#pragma once

#include <QFont>
#include <QGroupBox>

namespace qtui {

/// A group box with a bold title above a faint frame.
class Section final : public QGroupBox {
 public:
  explicit Section(QWidget& parent);

  QSize minimumSizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QFont titleFont;
};

}  // namespace qtui
