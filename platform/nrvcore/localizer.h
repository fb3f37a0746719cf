#pragma once

#include <locale.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "platform/nrvcore/string.h"

namespace nrvcore::config {

/// What takes the place of %1 to %4 in a localised text. An empty value leaves no trace.
class NRV_EXPORT ReplacementValue {
 public:
  ReplacementValue() noexcept;
  explicit ReplacementValue(UTF16String replacement);
  ReplacementValue(const ReplacementValue& other);
  ~ReplacementValue();
  ReplacementValue& operator=(const ReplacementValue& other);

  const UTF16String& Text() const noexcept;

 private:
  UTF16String text;
};

/// Turns keys of the form "$$$/" path "=" English text into the user's language. Translations are
/// gettext catalogues of the domain "tesserae" (FOLDER/LANGUAGE/LC_MESSAGES/tesserae.mo) whose
/// messages are the whole keys. Texts are English until a language is set.
///
/// It needs no locale but C.UTF-8 and leaves the process's locale alone. It sets the environment's
/// LANGUAGE, which is where gettext looks, and restores it when the library is unloaded. Set the
/// language before there are other threads; texts may then be asked for on any.
class NRV_EXPORT Localizer {
 public:
  /// The one localizer. It is destroyed when the library is unloaded, which may be with the module.
  static Localizer& Get();

  Localizer(const Localizer&) = delete;
  Localizer& operator=(const Localizer&) = delete;

  /// A folder without catalogues is no error: texts are then English. Counts from the next
  /// SetLanguage on.
  void SetCatalogues(const std::string& folder);
  /// `code` as in "de" or "pt_BR", or several parted by ":", the first that has a text counts;
  /// empty means what the user's environment asks for. A damaged catalogue is passed over.
  void SetLanguage(const std::string& code);
  /// Whether the last SetLanguage found a catalogue; texts are English otherwise.
  bool HasCatalogue() const { return hasCatalogue; }
  /// The first catalogue that the last SetLanguage passed over as damaged; empty for none.
  const std::string& DamagedCatalogue() const { return damagedCatalogue; }

  /// A key without translation shows what follows its first "=", one without "=" itself.
  UTF16String Localize(const char* key) const;
  /// The same with %1 to %4 replaced.
  UTF16String Localize(const char* key, std::initializer_list<ReplacementValue> values) const;

  /// The language's decimal sign: the translation of "$$$/nrvcore/Locale/DecimalSign=.".
  char16_t GetDecimalSign() const;

 private:
  Localizer();
  ~Localizer();

  /// The folders of sound catalogues for `languages`, as gettext wants them in LANGUAGE.
  std::string WithCatalogue(std::string_view languages);

  std::string userLanguage;
  std::optional<std::string> formerVariable;  // the environment's LANGUAGE before it was set
  std::string folder;
  std::string damagedCatalogue;
  bool hasCatalogue = false;
  locale_t messagesLocale = nullptr;  // null until a language is set
};

/// A localised text with %1 to %4 replaced, all in UTF-8: what a message or an exception says.
NRV_EXPORT std::string Message(const char* key,
                               std::initializer_list<std::string_view> values = {});

}  // namespace nrvcore::config
