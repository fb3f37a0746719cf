#pragma once

#include <locale.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "platform/nrvcore/string.h"

namespace nrvcore::config {

/// A text that replaces one of the placeholders %1 to %4 in a localised text.
class ReplacementValue {
 public:
  ReplacementValue() noexcept = default;
  explicit ReplacementValue(UTF16String replacement) noexcept : text(std::move(replacement)) {}

  const UTF16String& Text() const noexcept { return text; }

 private:
  UTF16String text;
};

/// Translates keys of the form "$$$/" path "=" English text into the user's language. Translations
/// are gettext catalogues of the domain "tesserae" (FOLDER/LANGUAGE/LC_MESSAGES/tesserae.mo) with
/// the whole key as the message ID. Texts are English until SetLanguage.
///
/// SetCatalogues and SetLanguage may be called only while the process has one thread, because
/// SetLanguage sets the environment variable LANGUAGE, which gettext reads. All other functions are
/// safe on any thread. The process's locale does not change; only the locale C.UTF-8 is required.
class NRV_EXPORT Localizer {
 public:
  static Localizer& Get();

  Localizer(const Localizer&) = delete;
  Localizer& operator=(const Localizer&) = delete;

  /// Sets the folder of the catalogues, which are trusted. Takes effect with the next SetLanguage.
  void SetCatalogues(const std::string& folder);
  /// Sets a language, such as "de" or "pt_BR", or several in the order of preference, separated by
  /// ":". An empty code selects the languages of the user's environment.
  void SetLanguage(const std::string& code);
  /// Whether the last SetLanguage found a catalogue. Otherwise texts are English.
  bool HasCatalogue() const { return hasCatalogue; }

  /// The key's translation, or else the text after its first "=", or else the key. Null and "" give
  /// an empty text.
  UTF16String Localize(const char* key) const;
  /// As above, with the placeholders %1 to %4 replaced by `values`. Others remain.
  UTF16String Localize(const char* key, std::initializer_list<ReplacementValue> values) const;

  /// As above, in the plural form that the language has for `count`. `key` contains the English
  /// singular; `plural` is the English plural, without a path.
  UTF16String LocalizePlural(const char* key, const char* plural, unsigned long count,
                             std::initializer_list<ReplacementValue> values) const;

  /// The language's decimal sign: the translation of "$$$/nrvcore/Locale/DecimalSign=.".
  char16_t GetDecimalSign() const;

 private:
  Localizer();

  /// Those of `languages` that have a catalogue, as a value for LANGUAGE.
  std::string FindCatalogues(std::string_view languages);

  std::string userLanguages;
  std::string folder;
  bool hasCatalogue = false;
  locale_t messagesLocale = nullptr;  // null until a language is set
};

/// Localizer::Localize in UTF-8, for messages and exceptions.
NRV_EXPORT std::string Message(const char* key,
                               std::initializer_list<std::string_view> values = {});

}  // namespace nrvcore::config
