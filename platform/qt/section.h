#pragma once

#include <QGroupBox>

namespace qtui {

/// A group of controls in a faint frame, under a title that stands out.
class Section final : public QGroupBox {
 public:
  explicit Section(QWidget& parent);

  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QFont TitleFont() const;
  QString PlainTitle() const;
};

}  // namespace qtui
