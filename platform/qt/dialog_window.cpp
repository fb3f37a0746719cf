#include "platform/qt/dialog_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <cmath>
#include <utility>

#include "platform/nrvui/ui_node.h"
#include "platform/nrvui/ui_views.h"
#include "platform/qt/qt_text.h"

namespace qtui {

using nrvcore::geom::PointT;
using nrvui::gestures::Key;
using nrvui::ui::UI_Dialog;
using nrvui::ui::UI_Node;

namespace {

constexpr QSize kLargestOffscreen(8192, 8192);  // limits the memory of screenshots
constexpr QSize kFrameAllowance(16, 48);        // for the window manager's frame

Qt::WindowFlags FlagsFor(const nrvui::ui::DialogStyle& style) {
  Qt::WindowFlags flags = style.isToolWindow ? Qt::Tool : Qt::Dialog;
  if (style.staysOnTop) flags |= Qt::WindowStaysOnTopHint;
  if (!style.hasTitleBar) return flags | Qt::FramelessWindowHint;
  flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint;
  return style.hasCloseBox ? flags | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint : flags;
}

/// The offscreen platform has no screen size to respect, and Qt warns about minimum sizes there.
bool HasScreen() {
  return QGuiApplication::platformName() != QStringLiteral("offscreen");
}

nrvui::ui::UI_Layout* FindLayout(UI_Dialog& dialog) {
  nrvui::ui::UI_Layout* found = nullptr;
  nrvui::ui::ForEachBelow<nrvui::ui::UI_Layout>(dialog, [&](nrvui::ui::UI_Layout& layout) {
    if (found == nullptr) found = &layout;
  });
  return found;
}

PointT<float> ToPoint(QSize size) {
  return {static_cast<float>(size.width()), static_cast<float>(size.height())};
}

PointT<float> ExpandedTo(PointT<float> one, PointT<float> other) {
  return {std::max(one.x, other.x), std::max(one.y, other.y)};
}

}  // namespace

DialogWindow::DialogWindow(DialogRun& modalRun, const std::vector<DialogListener*>& dialogListeners,
                           QWidget* parent, Qt::WindowModality modality)
    : QDialog(parent, FlagsFor(modalRun.Dialog().GetStyle())),
      run(modalRun),
      listeners(dialogListeners),
      dialog(modalRun.Dialog()),
      column(*new QVBoxLayout(this)),
      pane(new QWidget(this)) {
  setObjectName(ToQString(dialog.UI_GetNodeID()));
  setWindowTitle(ToQString(dialog.GetTitle()));
  setWindowModality(modality);
  setAttribute(Qt::WA_QuitOnClose, false);  // a dialog does not keep the application running

  column.setContentsMargins(0, 0, 0, 0);
  column.setSizeConstraint(QLayout::SetNoConstraint);

  run.SetListener(this);
  dialog.UI_SetObserver(this);
  run.Guard([this] {
    Build();
    FitContent();
    // FitContent has already done what these events request.
    QCoreApplication::removePostedEvents(pane, QEvent::LayoutRequest);
    ValuesChanged();
  });
}

DialogWindow::~DialogWindow() {
  dialog.UI_SetObserver(nullptr);
  run.SetListener(nullptr);
  if (loop == nullptr) return;
  loop->quit();  // the parent destroys the window
  if (!run.IsOver()) run.Guard([this] { dialog.SetResponse(nrvui::ui::kCancelResponse); });
}

void DialogWindow::Build() {
  content = std::make_unique<DialogContent>(run, *pane);
  column.addWidget(pane);
  pane->installEventFilter(this);
  for (QWidget* widget : pane->findChildren<QWidget*>()) {
    if (widget->focusPolicy() != Qt::NoFocus) widget->installEventFilter(this);
  }
  const auto& focused = dialog.GetInitialFocus();
  QWidget* focus = focused != nullptr ? content->WidgetOf(*focused) : nullptr;
  if (focus == nullptr) focus = content->FirstFocus();
  if (focus != nullptr) focus->setFocus();
}

void DialogWindow::RunModal(std::function<void()> painted) {
  if (run.IsOver()) return;
  whenPainted = std::move(painted);
  Place();
  show();
  activateWindow();
  if (run.IsOver()) return End();
  QEventLoop modalLoop;
  loop = &modalLoop;
  const QPointer<DialogWindow> alive = this;
  modalLoop.exec(QEventLoop::DialogExec);
  if (alive.isNull()) return;
  loop = nullptr;
  hide();  // QCoreApplication::quit also ends the loop
}

void DialogWindow::End() {
  if (loop != nullptr) loop->quit();
  hide();
}

void DialogWindow::Place() {
  using nrvui::ui::DialogPlacement;
  switch (dialog.GetPlacement()) {
    case DialogPlacement::kAtPoint: {
      const PointT<float> point = dialog.GetDialogPoint();
      return MoveOnScreen(QPointF(point.x, point.y).toPoint());
    }
    case DialogPlacement::kCentered:
      return move(screen()->availableGeometry().center() - rect().center());
    case DialogPlacement::kPositioned:
      if (wantedPosition) return MoveOnScreen(*wantedPosition);
      if (!beside.isEmpty()) return PlaceBeside();
      return;  // Qt centres a dialog over its parent window, or on the screen
  }
}

void DialogWindow::MoveOnScreen(QPoint wanted) {
  const QScreen* const there = QGuiApplication::screenAt(wanted);
  MoveWithin((there != nullptr ? there : screen())->availableGeometry(), wanted);
}

void DialogWindow::MoveWithin(const QRect& room, QPoint wanted) {
  const QSize framed = size() + kFrameAllowance;
  const QPoint last = room.bottomRight() - QPoint(framed.width(), framed.height());
  move(std::max(room.left(), std::min(wanted.x(), last.x())),
       std::max(room.top(), std::min(wanted.y(), last.y())));
}

void DialogWindow::PlaceBeside() {
  const QRect room = screen()->availableGeometry();
  const QSize framed = size() + kFrameAllowance;
  const int middle = beside.center().y() - framed.height() / 2;
  const QPoint right(beside.right() + 1, middle);
  const QPoint left(beside.left() - framed.width(), middle);
  if (right.x() <= room.right() - framed.width()) return MoveWithin(room, right);
  if (left.x() >= room.left()) return MoveWithin(room, left);
  // The dialog covers part of the rectangle, on the side where less of it is covered.
  const bool isRightFreer = room.right() - beside.right() >= beside.left() - room.left();
  MoveWithin(room, {isRightFreer ? room.right() : room.left(), middle});
}

bool DialogWindow::WasMoved() const {
  constexpr int kTolerance = 8;  // window managers adjust a position by the frame's width
  return placedAt && (pos() - *placedAt).manhattanLength() > kTolerance;
}

void DialogWindow::ValuesChanged() {
  std::optional<Summary> summary;
  for (DialogListener* listener : listeners) {
    if (const auto changed = listener->DialogChanged(dialog, run.Pending())) summary = changed;
  }
  if (summary) content->SetSummary(*summary);
}

void DialogWindow::NodeChanged(UI_Node&) {
  if (run.IsOver()) return End();
  SyncSize();
}

void DialogWindow::FitContent() {
  QSize needed = content->Align();
  if (Limited(needed) != needed) {
    content->MakeScrollable();
    needed = content->Align();
  }
  if (needed == neededSize) return;
  neededSize = needed;

  const PointT<float> size = ToPoint(neededSize);
  const PointT<float> formerMinimum = dialog.GetMinimumSize();
  const PointT<float> former = dialog.GetContentSize();
  if (nrvui::ui::UI_Layout* const layout = FindLayout(dialog)) {
    layout->UI_SetLocalRectF({0, 0, size.x, size.y});
  }
  // A dialog that does not take its minimum from a layout node gets it here. A side that the user
  // made longer than the minimum keeps its length.
  const PointT<float> minimum = ExpandedTo(dialog.GetMinimumSize(), size);
  if (!(minimum == dialog.GetMinimumSize())) dialog.SetMinimumSize(minimum);
  const PointT<float> wanted = {former.x > formerMinimum.x ? std::max(former.x, size.x) : size.x,
                                former.y > formerMinimum.y ? std::max(former.y, size.y) : size.y};
  if (!(wanted == dialog.GetContentSize())) nrvui::gestures::Resize(dialog, wanted);
  SyncSize();
}

QSize DialogWindow::Limited(QSize size) const {
  const QSize available =
      HasScreen() ? screen()->availableSize() - kFrameAllowance : kLargestOffscreen;
  const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  if (size.height() > available.height()) size.rwidth() += scrollBar;
  if (size.width() > available.width()) size.rheight() += scrollBar;
  return size.boundedTo(available);
}

QSize DialogWindow::SizeFor(PointT<float> contentSize) const {
  return Limited(QSizeF(std::ceil(contentSize.x), std::ceil(contentSize.y)).toSize());
}

void DialogWindow::SyncSize() {
  const QScopedValueRollback syncing(isSyncingSize, true);
  const QSize wanted = SizeFor(dialog.GetContentSize());
  if (HasScreen()) setMinimumSize(SizeFor(dialog.GetMinimumSize()));
  if (wanted == size()) return;
  const QPoint middle = geometry().center();
  resize(wanted);
  if (!isVisible() || !dialog.GetStyle().keepsCentre) return;
  const QPoint offset = middle - geometry().center();
  move(pos() + offset);
  if (placedAt) *placedAt += offset;
}

void DialogWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  if (isSyncingSize || !isVisible() || run.IsOver()) return;
  if (size() == SizeFor(dialog.GetContentSize())) return;
  run.Resize(size());
  if (!run.IsOver()) SyncSize();  // the dialog may have clamped the size
}

bool DialogWindow::HandleKey(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
      if (run.IsOver()) return true;
      if (event.isAutoRepeat()) return true;  // the user has not seen the first effect yet
      if (auto* const button = qobject_cast<QPushButton*>(focusWidget());
          button != nullptr && event.key() != Qt::Key_Escape) {
        button->click();
        return true;
      }
      run.Press(event.key() == Qt::Key_Escape ? Key::kEscape : Key::kReturn);
      return true;
    case Qt::Key_Alt:
      if (!run.IsOver()) content->ShowMnemonics(true);
      return false;
    default:
      return false;
  }
}

bool DialogWindow::eventFilter(QObject* watched, QEvent* event) {
  const bool isPane = watched == pane;
  switch (event->type()) {
    case QEvent::KeyPress:
      // Return, Escape and Alt reach the dialog whichever widget has the focus.
      return HandleKey(static_cast<QKeyEvent&>(*event));
    case QEvent::FocusIn:
      if (!run.IsOver()) content->Reveal(static_cast<QWidget&>(*watched));
      [[fallthrough]];
    case QEvent::Enter:
      if (!run.IsOver()) content->ShowHintOf(watched);
      break;
    case QEvent::Leave:
      if (!run.IsOver()) content->ShowHintOf(focusWidget());
      break;
    case QEvent::LayoutRequest:
      if (isPane && !run.IsOver()) run.Guard([this] { FitContent(); });
      break;
    case QEvent::Paint:
      if (isPane && !placedAt) placedAt = pos();
      if (isPane && whenPainted) {
        QTimer::singleShot(
            0, this, [this, painted = std::exchange(whenPainted, {})] { run.Guard(painted); });
      }
      break;
    default:
      break;
  }
  return QDialog::eventFilter(watched, event);
}

void DialogWindow::keyPressEvent(QKeyEvent* event) {
  if (!HandleKey(*event)) event->ignore();
}

void DialogWindow::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Alt && !run.IsOver()) content->ShowMnemonics(false);
  event->ignore();
}

void DialogWindow::closeEvent(QCloseEvent* event) {
  if (!run.IsOver()) run.Close();
  event->setAccepted(run.IsOver());
}

void DialogWindow::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::ActivationChange || run.IsOver()) return;
  if (!isActiveWindow()) content->ShowMnemonics(false);
  run.Guard([this] { dialog.UI_ActivationChanged(isActiveWindow()); });
}

}  // namespace qtui
