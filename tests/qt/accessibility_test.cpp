#include <QAccessible>
#include <QSet>

#include "qt/window_test.h"

namespace {

const QSet<QAccessible::Role> kRolesOfControls = {
    QAccessible::SpinBox,    QAccessible::EditableText, QAccessible::CheckBox,
    QAccessible::PushButton, QAccessible::RadioButton,  QAccessible::Grouping,
    QAccessible::Dialog,
};

/// "role:name" of each control at or below an object.
void Collect(QAccessibleInterface* object, QStringList& controls) {
  if (kRolesOfControls.contains(object->role()) && !object->state().invisible) {
    controls += QString::number(object->role()) + ':' + object->text(QAccessible::Name);
  }
  for (int i = 0; i < object->childCount(); ++i) Collect(object->child(i), controls);
}

}  // namespace

class Accessibility : public MosaicWindowTest {};

TEST_F(Accessibility, NamesEveryControl) {
  LookAt([](const OpenWindow& open) {
    QStringList controls;
    Collect(QAccessible::queryAccessibleInterface(&open.window), controls);
    // A dialog, six groups, six fields, two boxes, four radio buttons and three buttons.
    EXPECT_EQ(controls.size(), 22) << controls.join('\n').toStdString();
    for (const QString& control : controls) {
      EXPECT_FALSE(control.endsWith(':')) << control.toStdString();
      EXPECT_FALSE(control.contains('&')) << control.toStdString();
    }
    const auto name = [&](const char* id) {
      return QAccessible::queryAccessibleInterface(&open.Get(id))->text(QAccessible::Name);
    };
    EXPECT_EQ(name("HorizontalCountTxt"), "Across");
    EXPECT_EQ(name("DeleteRasterChk"), "Delete raster");
    EXPECT_EQ(name("OrigWidthStatic"), "Width: 300 pt");
    EXPECT_EQ(open.Get("HorizontalCountTxt").accessibleDescription(), "1 to 8640");
  });
}
