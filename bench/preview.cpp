#include "studio/mosaic/preview.h"

#include "bench/figures.h"
#include "bench/mosaic_request.h"
#include "bench/photograph.h"
#include "studio/window/canvas.h"

namespace {

constexpr QSize kCanvas(1000, 700);

/// Measures from a change of the dialog's choices to the painted canvas.
void Follow(benchmark::State& state) {
  const ArtworkPtr artwork = Place("a.jpg", Picture(bench::BigPhotograph().pixels), false);
  const Reduction reduction(artwork->picture);
  const MosaicParameters params =
      bench::MosaicRequest(artwork->picture, int(state.range(0)), int(state.range(1)));
  Canvas canvas;
  canvas.resize(kCanvas);
  canvas.show();
  canvas.Show(artwork);
  for (auto _ : state) {
    canvas.Show(WithMosaic(*artwork, reduction.Preview(artwork->picture, {params, {}})));
    canvas.viewport()->repaint();
  }
}

BENCHMARK(Follow)
    ->Name("Preview/follow")
    ->Args({100, 75})
    ->Args({500, 375})
    ->Args({8640, 8640})
    ->Unit(benchmark::kMillisecond);

constexpr bench::Line kLines[] = {
    {.what = "preview of 24 megapixels, 100 by 75 tiles, from the change to the painted canvas",
     .figure = "Preview/follow/100/75",
     .limit = 0.016},
    {.what = "500 by 375 tiles", .figure = "Preview/follow/500/375", .limit = 0.016},
    {.what = "8640 by 8640 tiles", .figure = "Preview/follow/8640/8640", .limit = 0.060},
};
const bench::Table kTable(9, kLines);

}  // namespace
