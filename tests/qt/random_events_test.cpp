#include <random>

#include "tests/qt/test_window.h"

namespace {

constexpr int kSeeds = 10;
constexpr int kEventsPerSeed = 1000;

constexpr Qt::Key kKeys[] = {
    Qt::Key_0,      Qt::Key_1,         Qt::Key_7,     Qt::Key_Period, Qt::Key_Minus, Qt::Key_E,
    Qt::Key_P,      Qt::Key_T,         Qt::Key_Up,    Qt::Key_Down,   Qt::Key_Left,  Qt::Key_Right,
    Qt::Key_Tab,    Qt::Key_Backtab,   Qt::Key_Space, Qt::Key_Home,   Qt::Key_End,   Qt::Key_Alt,
    Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_A,     Qt::Key_Z,      Qt::Key_PageUp};
constexpr Qt::KeyboardModifiers::Int kModifiers[] = {Qt::NoModifier, Qt::NoModifier,
                                                     Qt::ShiftModifier, Qt::ControlModifier};

}  // namespace

class RandomEvents : public MosaicWindowTest {};

/// Sends random keys, clicks and resizings, except to the two buttons that close the dialog. The
/// dialog stays open, and OK gives a valid record. A failure prints its seed.
TEST_F(RandomEvents, LeaveAValidRecord) {
  for (int seed = 0; seed < kSeeds; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    record.sizeUnavailable = seed % 4 == 3;
    std::fill(std::begin(record.reserved0), std::end(record.reserved0), 0x5A);
    const auto below = [&](int limit) { return static_cast<int>(random() % limit); };
    const ResultCode code = Run([&](const OpenWindow& open) {
      const auto isClosing = [&](const QWidget* widget) {
        return widget != nullptr &&
               (widget == &open.Get("okButton") || widget == &open.Get("cancelButton"));
      };
      for (int i = 0; i < kEventsPerSeed && open.window.isVisible(); ++i) {
        const int kind = below(20);
        if (kind == 0) {
          open.window.resize(below(1200), below(1000));
        } else if (kind < 8) {
          const QPoint place(below(open.window.width()), below(open.window.height()));
          if (isClosing(open.window.childAt(place))) continue;
          QTest::mouseClick(open.window.windowHandle(), Qt::LeftButton, {}, place);
        } else if (!isClosing(open.window.focusWidget())) {
          open.Key(kKeys[below(std::size(kKeys))],
                   Qt::KeyboardModifiers(kModifiers[below(std::size(kModifiers))]));
        } else {
          open.Get("NewWidthTxt").setFocus();
        }
        if (below(10) == 0) QCoreApplication::processEvents();
      }
      EXPECT_TRUE(open.window.isVisible());
      open.Click("okButton");  // waits if an entry was clamped
      if (open.window.isVisible()) open.Click("okButton");
    });
    EXPECT_EQ(code, ResultCode::kSuccess);
    EXPECT_EQ(record.tilesAcross, record.tilesAcrossCopy);
    EXPECT_TRUE(record.tileSpacingHorizontal >= 0 && record.tileSpacingVertical >= 0);
    EXPECT_TRUE(record.newWidth >= 0 && record.newHeight >= 0);
    EXPECT_EQ(record.reserved0[7], 0x5A);
    if (HasFailure()) return;
  }
}
