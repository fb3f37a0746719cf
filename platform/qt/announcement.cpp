#include "platform/qt/announcement.h"

#include <QAccessibleWidget>

namespace qtui {

namespace {

constexpr const char* kObjectName = "announcement";

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
  auto* const widget = qobject_cast<QWidget*>(object);
  if (widget == nullptr || widget->objectName() != QLatin1String(kObjectName)) return nullptr;
  return new QAccessibleWidget(widget, QAccessible::Notification);
}

QWidget& AnnouncementOf(QWidget& window) {
  [[maybe_unused]] static const bool isInstalled = [] {
    QAccessible::installFactory(MakeAccessible);
    return true;
  }();
  auto* widget = window.findChild<QWidget*>(QLatin1String(kObjectName), Qt::FindDirectChildrenOnly);
  if (widget != nullptr) return *widget;
  widget = new QWidget(&window);
  widget->setObjectName(QLatin1String(kObjectName));
  widget->resize(0, 0);
  return *widget;
}

}  // namespace

void Announce(QWidget& window, const QString& text) {
  if (text.isEmpty()) return;
  QWidget& announcement = AnnouncementOf(window);
  // Qt 6.4 does not pass QAccessible::Alert on to AT-SPI. Screen readers speak a notification that
  // appears.
  announcement.hide();
  announcement.setAccessibleName(text);
  announcement.show();
}

}  // namespace qtui
