#include "mosaic/dialog_harness.h"

#include <sstream>

namespace {

/// Plays a function in the place of a person.
class FunctionPresenter final : public nrvui::ui::DialogPresenter {
 public:
  explicit FunctionPresenter(const std::function<void(const OpenDialog&)>& function)
      : person(function) {}
  void Present(nrvui::ui::UI_Dialog& dialog) override { person({dialog}); }

 private:
  const std::function<void(const OpenDialog&)>& person;
};

size_t Replace(std::string& text, const std::string& from, const std::string& to) {
  size_t times = 0;
  for (size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size(), ++times)
    text.replace(at, from.size(), to);
  return times;
}

}  // namespace

MosaicTest::MosaicTest(const std::filesystem::path& resources) : host(alerts, resources) {
  record.boundsLeft = -50;
  record.boundsTop = 40;
  record.boundsRight = 250;
  record.boundsBottom = 240;
  record.tilesAcross = 30;
  record.tilesDown = 20;
  record.isColor = 1;
  record.keepHorizontal = 1;
  EXPECT_EQ(module.StartUp(), ResultCode::kSuccess);
}

ResultCode MosaicTest::Run(const Person& person) {
  FunctionPresenter presenter(person);
  const nrvui::ui::InstalledPresenter installed(presenter);
  MosaicParameters* params = &record;
  return host.Suites().Find<MosaicSuite>()->RunMosaicDialog(&state, &params);
}

SwappedLayout::SwappedLayout(const std::string& one, const std::string& other) {
  const char* const kLayout = "layouts/16301.xml";
  std::filesystem::copy(standin::DefaultResourceRoot(), path,
                        std::filesystem::copy_options::recursive);
  std::stringstream content;
  content << std::ifstream(path / kLayout).rdbuf();
  std::string text = content.str();
  EXPECT_GT(Replace(text, '"' + one + '"', "\a"), 0u) << one;
  Replace(text, '"' + other + '"', '"' + one + '"');
  Replace(text, "\a", '"' + other + '"');
  Write(kLayout, text);
}
