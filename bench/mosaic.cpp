#include <Magick++.h>

#include <QImage>

#include "bench/figures.h"
#include "bench/mosaic_request.h"
#include "bench/photograph.h"
#include "studio/mosaic/mosaic_job.h"

namespace {

class Discard : public MosaicSink {
 public:
  void AddRow(std::span<const QRgb> tiles) override { benchmark::DoNotOptimize(tiles.data()); }
  void Finish() override {}
};

void BuildMosaic(benchmark::State& state) {
  const Picture picture(bench::BigPhotograph().pixels);
  const MosaicParameters params =
      bench::MosaicRequest(picture, int(state.range(0)), int(state.range(1)));
  for (auto _ : state) {
    MosaicJob job(picture, {params, {}});
    job.Add(std::make_unique<Discard>());
    benchmark::DoNotOptimize(job.Run([](int) { return true; }));
  }
}

void Scale(benchmark::State& state) {
  const QImage& pixels = bench::BigPhotograph().pixels;
  const Magick::Image picture(size_t(pixels.width()), size_t(pixels.height()), "BGRP",
                              Magick::CharPixel, pixels.constBits());
  Magick::Geometry size(size_t(state.range(0)), size_t(state.range(1)));
  size.aspect(true);
  for (auto _ : state) {
    Magick::Image scaled = picture;
    scaled.scale(size);
    benchmark::DoNotOptimize(scaled.constImage());
  }
}

void Decode(benchmark::State& state) {
  const QByteArray& jpeg = bench::BigPhotograph().jpeg;
  for (auto _ : state) {
    const QImage image = QImage::fromData(jpeg, "JPG");
    benchmark::DoNotOptimize(image.constBits());
  }
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Args({100, 75})->Args({1000, 750})->Unit(benchmark::kMillisecond);
}

BENCHMARK(BuildMosaic)->Name("Mosaic/build")->Apply(Sizes);
BENCHMARK(Scale)->Name("Mosaic/scale")->Apply(Sizes);
BENCHMARK(Decode)->Name("Mosaic/decode")->Unit(benchmark::kMillisecond);

constexpr const char* kScale = "ImageMagick's `-scale`";
constexpr const char* kDecode = "decoding alone";
constexpr bench::Line kLines[] = {
    {.what = "mosaic of 24 megapixels, 100 by 75 tiles",
     .figure = "Mosaic/build/100/75",
     .against = kScale,
     .peer = "Mosaic/scale/100/75",
     .limit = 1},
    {.what = "the same",
     .figure = "Mosaic/build/100/75",
     .against = kDecode,
     .peer = "Mosaic/decode",
     .limit = 1},
    {.what = "1000 by 750 tiles",
     .figure = "Mosaic/build/1000/750",
     .against = kScale,
     .peer = "Mosaic/scale/1000/750",
     .limit = 1},
    {.what = "the same",
     .figure = "Mosaic/build/1000/750",
     .against = kDecode,
     .peer = "Mosaic/decode",
     .limit = 1},
};
const bench::Table kTable(7, kLines);

}  // namespace
