#include "studio/window/line_icon.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <iterator>

namespace {

constexpr double kGrid = 20;  // drawings are made on a grid of so many units a side
constexpr double kLine = 1.5;

QPainterPath Polyline(std::initializer_list<QPointF> points) {
  QPainterPath path(*points.begin());
  for (const QPointF* point = points.begin() + 1; point != points.end(); ++point) {
    path.lineTo(*point);
  }
  return path;
}

void DrawOpen(QPainter& painter) {
  QPainterPath folder =
      Polyline({{2.5, 15.5}, {2.5, 4.5}, {7.5, 4.5}, {9.5, 6.5}, {15.5, 6.5}, {15.5, 9}});
  folder.addPath(Polyline({{2.5, 15.5}, {5, 9}, {18, 9}, {15.5, 15.5}, {2.5, 15.5}}));
  painter.drawPath(folder);
}

void DrawExport(QPainter& painter) {
  painter.drawPath(Polyline({{6, 8.5}, {3.5, 8.5}, {3.5, 17}, {16.5, 17}, {16.5, 8.5}, {14, 8.5}}));
  painter.drawPath(Polyline({{10, 13}, {10, 2.5}}));
  painter.drawPath(Polyline({{6.5, 6}, {10, 2.5}, {13.5, 6}}));
}

void DrawTesserae(QPainter& painter) {
  const QColor color = painter.pen().color();
  constexpr int kWeights[] = {100, 55, 30, 70, 100, 45, 35, 80, 100};
  for (int i = 0; i < 9; ++i) {
    QColor tile = color;
    tile.setAlphaF(color.alphaF() * float(kWeights[i]) / 100);
    const int row = i / 3;
    painter.fillRect(QRectF(2 + i % 3 * 5.5, 2 + row * 5.5, 5, 5), tile);
  }
}

void DrawUndo(QPainter& painter) {
  QPainterPath arrow = Polyline({{5, 7.5}, {12, 7.5}});
  arrow.arcTo(QRectF(8, 7.5, 8.5, 8.5), 90, -180);
  arrow.lineTo(7, 16);
  painter.drawPath(arrow);
  painter.drawPath(Polyline({{8, 3.5}, {4, 7.5}, {8, 11.5}}));
}

void DrawRedo(QPainter& painter) {
  painter.translate(kGrid, 0);
  painter.scale(-1, 1);
  DrawUndo(painter);
}

void DrawZoomOut(QPainter& painter) {
  painter.drawEllipse(QPointF(8.5, 8.5), 5.75, 5.75);
  painter.drawPath(Polyline({{12.8, 12.8}, {17.5, 17.5}}));
  painter.drawPath(Polyline({{6, 8.5}, {11, 8.5}}));
}

void DrawZoomIn(QPainter& painter) {
  DrawZoomOut(painter);
  painter.drawPath(Polyline({{8.5, 6}, {8.5, 11}}));
}

void DrawFit(QPainter& painter) {
  for (int quarter = 0; quarter < 4; ++quarter) {
    painter.drawPath(Polyline({{2.5, 7}, {2.5, 2.5}, {7, 2.5}}));
    painter.translate(kGrid, 0);
    painter.rotate(90);
  }
  painter.drawRect(QRectF(6.5, 6.5, 7, 7));
}

void DrawPicture(QPainter& painter) {
  painter.drawRoundedRect(QRectF(2.5, 3.5, 15, 13), 1.5, 1.5);
  painter.drawEllipse(QPointF(7, 7.75), 1.4, 1.4);
  painter.drawPath(Polyline({{2.8, 14.5}, {7, 10.75}, {9.5, 13}, {13.25, 8.75}, {17.2, 13}}));
}

constexpr void (*kDrawings[])(QPainter&) = {DrawOpen,    DrawExport, DrawTesserae,
                                            DrawUndo,    DrawRedo,   DrawZoomIn,
                                            DrawZoomOut, DrawFit,    DrawPicture};

class LineIconEngine final : public QIconEngine {
 public:
  explicit LineIconEngine(Drawing shownDrawing) : drawing(shownDrawing) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText;
    const double side = std::min(rect.width(), rect.height());
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(QRectF(rect).center() - QPointF(side, side) / 2);
    painter->scale(side / kGrid, side / kGrid);
    painter->setPen(QPen(QApplication::palette().color(group, role), kLine, Qt::SolidLine,
                         Qt::RoundCap, Qt::RoundJoin));
    painter->setBrush(Qt::NoBrush);
    kDrawings[size_t(drawing)](*painter);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, pixmap.rect(), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new LineIconEngine(drawing); }

 private:
  const Drawing drawing;
};

static_assert(std::size(kDrawings) == size_t(Drawing::kPicture) + 1);

}  // namespace

QIcon LineIcon(Drawing drawing) {
  return QIcon(new LineIconEngine(drawing));
}
