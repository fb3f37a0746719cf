#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "bench/built_module.h"
#include "bench/figures.h"
#include "platform/qt/qt_presenter.h"

namespace {

/// The same form written by hand in Qt, without the toolkit's nodes.
class HandMadeForm : public QDialog {
 public:
  explicit HandMadeForm(std::function<void()> hook) : whenPainted(std::move(hook)) {
    setWindowTitle("Create Tesserae");
    hint->setObjectName("hint");
    hint->setWordWrap(true);
    hint->setForegroundRole(QPalette::PlaceholderText);
    hint->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    hint->setFixedHeight(2 * hint->fontMetrics().lineSpacing());
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* focus) {
      auto* const field = qobject_cast<QDoubleSpinBox*>(focus);
      hint->setText(field ? field->accessibleName() + ": " + field->toolTip() : QString());
    });

    auto* const sections = new QGridLayout;
    sections->addWidget(CurrentSize(), 0, 0);
    sections->addWidget(NewSize(), 0, 1);
    sections->addWidget(Fields("Number of Tiles", "&Across:", "&Down:"), 1, 0);
    sections->addWidget(Fields("Tile Spacing", "Hori&zontal:", "&Vertical:"), 1, 1);
    sections->addWidget(Proportions(), 2, 0);
    sections->addWidget(Result(), 2, 1);

    auto* const buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(new QPushButton("Cancel"));
    auto* const ok = new QPushButton("OK");
    ok->setDefault(true);
    buttons->addWidget(ok);

    auto* const column = new QVBoxLayout(this);
    column->addLayout(sections);
    column->addWidget(hint);
    column->addLayout(buttons);
    findChild<QDoubleSpinBox*>()->setFocus();
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QDialog::paintEvent(event);
    if (whenPainted) QTimer::singleShot(0, this, std::exchange(whenPainted, {}));
  }

 private:
  static void AddRow(QGridLayout& grid, const char* caption, QWidget* field) {
    auto* const label = new QLabel(caption);
    label->setBuddy(field);
    field->setAccessibleName(QString(caption).remove('&').remove(':'));
    const int row = grid.rowCount();
    grid.addWidget(label, row, 0, Qt::AlignRight | Qt::AlignVCenter);
    grid.addWidget(field, row, 1);
  }

  static QDoubleSpinBox* Field() {
    auto* const field = new QDoubleSpinBox;
    field->setMaximum(8640);
    field->setValue(40);
    field->setSuffix(" pt");
    field->setToolTip("0 pt to 8640 pt, also in mm, cm, in or px.");
    field->setAccessibleDescription("0 pt to 8640 pt");
    return field;
  }

  static QGroupBox* Fields(const char* title, const char* first, const char* second) {
    auto* const section = new QGroupBox(title);
    auto* const grid = new QGridLayout(section);
    AddRow(*grid, first, Field());
    AddRow(*grid, second, Field());
    return section;
  }

  static QGroupBox* CurrentSize() {
    auto* const section = new QGroupBox("Current Size");
    auto* const grid = new QGridLayout(section);
    AddRow(*grid, "Width:", new QLabel("300 pt"));
    AddRow(*grid, "Height:", new QLabel("200 pt"));
    return section;
  }

  static QGroupBox* NewSize() {
    QGroupBox* const section = Fields("New Size", "&Width:", "&Height:");
    auto* const grid = static_cast<QGridLayout*>(section->layout());
    grid->addWidget(new QCheckBox("Use &percentages"), grid->rowCount(), 1);
    return section;
  }

  static void AddRadios(QGroupBox& section, QVBoxLayout& column, const char* one,
                        const char* other) {
    auto* const group = new QButtonGroup(&section);
    for (const char* caption : {one, other}) {
      auto* const radio = new QRadioButton(caption);
      group->addButton(radio);
      column.addWidget(radio);
    }
    group->buttons().front()->setChecked(true);
  }

  static QGroupBox* Proportions() {
    auto* const section = new QGroupBox("Proportions");
    auto* const column = new QVBoxLayout(section);
    AddRadios(*section, *column, "&Keep width", "Keep h&eight");
    column->addWidget(new QPushButton("Use &Ratio"));
    return section;
  }

  static QGroupBox* Result() {
    auto* const section = new QGroupBox("Result");
    auto* const column = new QVBoxLayout(section);
    AddRadios(*section, *column, "&Colour", "&Grey");
    column->addWidget(new QCheckBox("De&lete raster"));
    return section;
  }

  std::function<void()> whenPainted;
  QLabel* hint = new QLabel;
};

void ShowDialog(benchmark::State& state) {
  bench::BuiltModule module;
  struct Closer final : qtui::DialogListener {
    void DialogPainted(QWidget& window) override {
      paintedAt = bench::ThreadTime();
      window.close();
    }
    double paintedAt = 0;
  } closer;
  qtui::QtPresenter presenter;
  presenter.AddListener(closer);
  for (auto _ : state) {
    const auto start = module.RunDialog(presenter);
    state.SetIterationTime(closer.paintedAt - start);
  }
}

void ShowHandMadeForm(benchmark::State& state) {
  for (auto _ : state) {
    double paintedAt = 0;
    const auto start = bench::ThreadTime();
    HandMadeForm* shown = nullptr;
    HandMadeForm form([&] {
      paintedAt = bench::ThreadTime();
      shown->close();
    });
    shown = &form;
    form.exec();
    state.SetIterationTime(paintedAt - start);
  }
}

BENCHMARK(ShowDialog)->Name("Window/first-paint")->UseManualTime();
BENCHMARK(ShowHandMadeForm)->Name("Window/hand-made")->UseManualTime();

constexpr bench::Line kLines[] = {
    {.what = "dialog in a window, from the call to the first paint",
     .figure = "Window/first-paint",
     .against = "the same form built by hand in Qt",
     .peer = "Window/hand-made",
     .limit = 1},
};
const bench::Table kTable(3, kLines);

}  // namespace
