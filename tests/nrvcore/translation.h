#pragma once

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "platform/nrvcore/localizer.h"

/// A folder with one gettext catalogue, in the user's language for as long as it lives.
class Translation {
 public:
  Translation(const std::string& language, std::map<std::string, std::string> messages) {
    messages[""] = "Content-Type: text/plain; charset=UTF-8\n";
    std::string pattern = std::filesystem::temp_directory_path() / "catalogueXXXXXX";
    folder = mkdtemp(pattern.data());
    const std::filesystem::path place = folder / language / "LC_MESSAGES";
    std::filesystem::create_directories(place);
    std::ofstream(place / "tesserae.mo", std::ios::binary) << Catalogue(messages);
    nrvcore::config::Localizer::Get().SetCatalogues(folder);
    nrvcore::config::Localizer::Get().SetLanguage(language);
  }
  Translation(const Translation&) = delete;
  Translation& operator=(const Translation&) = delete;
  ~Translation() {
    nrvcore::config::Localizer::Get().SetLanguage("en");
    std::filesystem::remove_all(folder);
  }

 private:
  static std::string Word(std::size_t value) {
    const auto word = static_cast<std::uint32_t>(value);
    return std::string(reinterpret_cast<const char*>(&word), sizeof word);
  }

  static std::string Catalogue(const std::map<std::string, std::string>& messages) {
    constexpr std::size_t kHeaderSize = 28;
    const std::size_t tableSize = messages.size() * 8;
    std::string keyTable, textTable, strings;
    const auto add = [&](std::string& table, const std::string& string) {
      table += Word(string.size()) + Word(kHeaderSize + 2 * tableSize + strings.size());
      strings += string + '\0';
    };
    for (const auto& [key, text] : messages) {
      add(keyTable, key);
      add(textTable, text);
    }
    return Word(0x950412DE) + Word(0) + Word(messages.size()) + Word(kHeaderSize) +
           Word(kHeaderSize + tableSize) + Word(0) + Word(0) + keyTable + textTable + strings;
  }

  std::filesystem::path folder;
};
