#pragma once

#include <string>
#include <utility>
#include <vector>

namespace standin {

/// Shows the host's alerts and about boxes to the user. Texts are UTF-8.
class UserInterface {
 public:
  virtual ~UserInterface() = default;

  virtual void ShowAlert(const std::string& text) = 0;
  virtual void ShowAbout(const std::string& firstText, const std::string& secondText) = 0;
};

/// Records the texts and shows nothing.
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
