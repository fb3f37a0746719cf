#pragma once

#include <string>
#include <utility>
#include <vector>

namespace standin {

/// Shows the host's alerts and about boxes to the user, and returns when they are closed. Texts are
/// UTF-8. Called on the main thread.
class UserInterface {
 public:
  virtual ~UserInterface() = default;

  virtual void ShowAlert(const std::string& text) = 0;
  virtual void ShowAbout(const std::string& firstText, const std::string& secondText) = 0;
};

/// Records the texts instead of showing them.
class RecordingUserInterface : public UserInterface {
 public:
  void ShowAlert(const std::string& text) override { alerts.push_back(text); }
  void ShowAbout(const std::string& firstText, const std::string& secondText) override {
    aboutBoxes.emplace_back(firstText, secondText);
  }

  std::vector<std::string> alerts;
  std::vector<std::pair<std::string, std::string>> aboutBoxes;
};

}  // namespace standin
