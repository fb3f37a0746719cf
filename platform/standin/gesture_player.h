#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace standin {

/// Plays a gesture file on every dialog that opens during its own life, in the place of a person.
class GesturePlayer {
 public:
  /// `report` hears, in UTF-8, what the person would be told. Throws std::runtime_error with file,
  /// line and reason when the file cannot be read or understood.
  explicit GesturePlayer(const std::filesystem::path& file,
                         std::function<void(const std::string&)> report = {});
  ~GesturePlayer();

  GesturePlayer(const GesturePlayer&) = delete;
  GesturePlayer& operator=(const GesturePlayer&) = delete;

  /// Which gesture could not be played on the last dialog and why; empty when all could.
  std::string Problem() const;

 private:
  struct Installed;
  std::unique_ptr<Installed> installed;
};

}  // namespace standin
