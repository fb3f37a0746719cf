#pragma once

#include <string>
#include <utility>
#include <vector>

namespace standin {

/// What the host shows to the person at the screen. Texts are UTF-8.
class UserInterface {
 public:
  virtual ~UserInterface() = default;

  virtual void ShowAlert(const std::string& text) = 0;
  virtual void ShowAbout(const std::string& firstText, const std::string& secondText) = 0;
};

/// Shows nothing and remembers what would have been shown.
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
