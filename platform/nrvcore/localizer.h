#pragma once

#include <locale.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "platform/nrvcore/string.h"

namespace nrvcore::config {

/// Replaces one of %1 to %4 in a localised text; an empty value removes it.
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

  /// Sets the folder of the catalogues; texts are English when it has none. Takes effect with the
  /// next SetLanguage. Catalogues are installed with the program and trusted: gettext checks little
  /// of them.
  void SetCatalogues(const std::string& folder);
  /// `code` is a language as in "de" or "pt_BR", or several, separated by ":", of which the first
  /// with a translation counts. An empty code means the language of the user's environment.
  void SetLanguage(const std::string& code);
  /// Whether the last SetLanguage found a catalogue; texts are English otherwise.
  bool HasCatalogue() const { return hasCatalogue; }

  /// The key's translation. A key without one yields the text after its first "=", or itself.
  UTF16String Localize(const char* key) const;
  /// The same with %1 to %4 replaced.
  UTF16String Localize(const char* key, std::initializer_list<ReplacementValue> values) const;

  /// The form of a text that the language's rules choose for `count` things, with %1 to %4
  /// replaced. `key` has the English singular after its first "="; `plural` is the English plural
  /// alone.
  UTF16String LocalizePlural(const char* key, const char* plural, unsigned long count,
                             std::initializer_list<ReplacementValue> values) const;

  /// The language's decimal sign: the translation of "$$$/nrvcore/Locale/DecimalSign=.".
  char16_t GetDecimalSign() const;

 private:
  Localizer();
  ~Localizer();

  /// Those of `languages` that have a catalogue, in the form of LANGUAGE.
  std::string WithCatalogue(std::string_view languages);

  std::string userLanguage;
  std::optional<std::string> formerVariable;  // the environment's LANGUAGE before it was set
  std::string folder;
  bool hasCatalogue = false;
  locale_t messagesLocale = nullptr;  // null until a language is set
};

/// Localizer::Localize in UTF-8, for messages and exceptions.
NRV_EXPORT std::string Message(const char* key,
                               std::initializer_list<std::string_view> values = {});

}  // namespace nrvcore::config
