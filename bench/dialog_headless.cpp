#include <QBuffer>
#include <QDoubleSpinBox>
#include <QUiLoader>
#include <QWidget>
#include <memory>
#include <stdexcept>

#include "bench/built_module.h"
#include "bench/figures.h"
#include "bench/form_text.h"

namespace {

void RunDialog(benchmark::State& state) {
  bench::BuiltModule module;
  bench::ImpatientPerson person;
  for (auto _ : state) {
    const auto start = module.RunDialog(person);
    state.SetIterationTime(person.ReadyAt() - start);
  }
}

void LoadForm(benchmark::State& state) {
  QByteArray text = bench::MosaicFormText();
  QUiLoader loader;
  for (auto _ : state) {
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    const double start = bench::ThreadTime();
    const std::unique_ptr<QWidget> form(loader.load(&buffer));
    state.SetIterationTime(bench::ThreadTime() - start);
    if (!form || form->findChildren<QDoubleSpinBox*>().size() != 6) {
      throw std::runtime_error("the form is not whole");
    }
  }
}

BENCHMARK(RunDialog)->Name("Dialog/first-gesture")->UseManualTime();
BENCHMARK(LoadForm)->Name("Dialog/form-loader")->UseManualTime();

constexpr bench::Line kLines[] = {
    {.what = "dialog without a window, from the call to the first gesture",
     .figure = "Dialog/first-gesture",
     .against = "`QUiLoader` making a form of the same controls",
     .peer = "Dialog/form-loader",
     .limit = 0.12},
};
const bench::Table kTable(2, kLines);

}  // namespace
