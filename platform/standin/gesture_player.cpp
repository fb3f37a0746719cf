#include "platform/standin/gesture_player.h"

#include <utility>

#include "platform/nrvui/scripted_presenter.h"

namespace standin {

struct GesturePlayer::Installed {
  nrvui::gestures::ScriptedPresenter scripted;
  nrvui::ui::InstalledPresenter presenter{scripted};
};

GesturePlayer::GesturePlayer(const std::filesystem::path& file,
                             std::function<void(const std::string&)> report)
    : installed(
          new Installed{.scripted = nrvui::gestures::ScriptedPresenter(
                            nrvui::gestures::GestureScript::ReadFile(file), std::move(report))}) {}

GesturePlayer::~GesturePlayer() = default;

std::string GesturePlayer::Problem() const {
  const auto& error = installed->scripted.Error();
  return error ? error->what() : "";
}

}  // namespace standin
