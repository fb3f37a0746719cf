#include "mosaic/dialog_harness.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <utility>

MosaicTest::MosaicTest(std::filesystem::path resources) : host(alerts, std::move(resources)) {
  SetSource(300, 200);
  record.tilesAcross = 30;
  record.tilesDown = 20;
  record.isColor = 1;
  record.keepHorizontal = 1;
  EXPECT_EQ(module.StartUp(), ResultCode::kSuccess);
}

ResultCode MosaicTest::Run(std::function<void(const OpenDialog&)> person) {
  FunctionPresenter presenter(std::move(person));
  const nrvui::ui::InstalledPresenter installed(presenter);
  MosaicParameters* params = &record;
  return host.Suites().Find<MosaicSuite>()->RunMosaicDialog(&state, &params);
}

void MosaicTest::LookAt(std::function<void(const OpenDialog&)> person) {
  EXPECT_EQ(Run(std::move(person)), ResultCode::kCancelled);
}

ResultCode MosaicTest::Play(const std::string& gestures) {
  nrvui::gestures::ScriptedPresenter presenter(
      nrvui::gestures::GestureScript::Parse(gestures, "gestures"));
  const nrvui::ui::InstalledPresenter installed(presenter);
  MosaicParameters* params = &record;
  const ResultCode code = host.Suites().Find<MosaicSuite>()->RunMosaicDialog(&state, &params);
  EXPECT_FALSE(presenter.Error()) << presenter.Error()->what();
  return code;
}

void MosaicTest::SetSource(int32_t width, int32_t height) {
  record.boundsLeft = -50;
  record.boundsTop = 40;
  record.boundsRight = static_cast<int32_t>(width - 50LL);
  record.boundsBottom = static_cast<int32_t>(height + 40LL);
}

DamagedResources::DamagedResources() {
  std::string pattern = (std::filesystem::temp_directory_path() / "resourcesXXXXXX").string();
  root = mkdtemp(pattern.data());
  std::filesystem::copy(standin::DefaultResourceRoot(), root,
                        std::filesystem::copy_options::recursive);
}

DamagedResources::~DamagedResources() {
  std::filesystem::remove_all(root);
}

void DamagedResources::SwapInLayout(const std::string& one, const std::string& other) const {
  const std::filesystem::path file = root / "layouts" / "16301.xml";
  std::stringstream content;
  content << std::ifstream(file).rdbuf();
  std::string text = content.str();
  ASSERT_NE(text.find(one), std::string::npos) << one;
  std::string swapped;
  for (size_t i = 0; i < text.size();) {
    if (text.compare(i, one.size(), one) == 0) {
      swapped += other;
      i += one.size();
    } else if (text.compare(i, other.size(), other) == 0) {
      swapped += one;
      i += other.size();
    } else {
      swapped += text[i++];
    }
  }
  std::ofstream(file) << swapped;
}
