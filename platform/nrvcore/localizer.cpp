#include "platform/nrvcore/localizer.h"

#include <libintl.h>

#include <algorithm>
#include <boost/algorithm/string/join.hpp>
#include <boost/core/noncopyable.hpp>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <span>
#include <vector>

#include "platform/nrvcore/unicode.h"

// gettext's manual documents this counter: changing it clears the cache of lookups.
extern "C" int _nl_msg_cat_cntr;  // NOLINT(readability-identifier-naming)

namespace nrvcore::config {

namespace {

constexpr const char* kDomain = "tesserae";
constexpr const char* kDecimalSignKey = "$$$/nrvcore/Locale/DecimalSign=.";
constexpr const char* kUntranslated = "C";
constexpr const char* kVariable = "LANGUAGE";

std::string FromEnvironment(std::initializer_list<const char*> names) {
  for (const char* name : names) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

/// As in gettext, LANGUAGE has no effect in the locale "C".
std::string LanguagesOfEnvironment() {
  const std::string locale = FromEnvironment({"LC_ALL", "LC_MESSAGES", "LANG"});
  if (locale.empty() || locale == "C" || locale == "POSIX") return kUntranslated;
  return FromEnvironment({kVariable, "LC_ALL", "LC_MESSAGES", "LANG"});
}

class ScopedLocale : boost::noncopyable {
 public:
  explicit ScopedLocale(locale_t locale) : previous(uselocale(locale)) {}
  ~ScopedLocale() { uselocale(previous); }

 private:
  locale_t previous;
};

const char* EnglishText(const char* key) {
  const char* equalSign = std::strchr(key, '=');
  return equalSign == nullptr ? key : equalSign + 1;
}

UTF16String WithReplacements(std::u16string_view text, std::span<const ReplacementValue> values) {
  UTF16String out;
  while (!text.empty()) {
    const std::size_t plain = std::min(text.find(u'%'), text.size());
    out.Append(text.substr(0, plain));
    text.remove_prefix(plain);
    if (text.empty()) break;
    const std::size_t index = text.substr(0, 2).back() - std::size_t{u'1'};
    const bool isPlaceholder = index < values.size();
    out.Append(isPlaceholder ? values[index].Text().View() : text.substr(0, 1));
    text.remove_prefix(isPlaceholder ? 2 : 1);
  }
  return out;
}

}  // namespace

Localizer& Localizer::Get() {
  static Localizer localizer;
  return localizer;
}

Localizer::Localizer() : userLanguages(LanguagesOfEnvironment()) {
  bind_textdomain_codeset(kDomain, "UTF-8");
}

void Localizer::SetCatalogues(const std::string& cataloguesFolder) {
  folder = cataloguesFolder;
  bindtextdomain(kDomain, folder.c_str());
}

std::string Localizer::FindCatalogues(std::string_view languages) {
  std::vector<std::string> found;
  while (!languages.empty()) {
    std::string_view language = languages.substr(0, languages.find(':'));
    languages.remove_prefix(std::min(language.size() + 1, languages.size()));
    if (language.find('/') != language.npos) continue;
    // "de_CH.UTF-8@euro" can use the catalogues of "de_CH.UTF-8", "de_CH" and "de".
    for (const char* end : {"", "@", ".@", "_.@"}) {
      language = language.substr(0, language.find_first_of(end));
      const auto file =
          std::filesystem::path(folder) / language / "LC_MESSAGES" / (std::string(kDomain) + ".mo");
      std::error_code error;
      if (std::count(found.begin(), found.end(), language) == 0 && is_regular_file(file, error))
        found.emplace_back(language);
    }
    if (language == "en" || language == kUntranslated) break;  // the keys contain the English text
  }
  hasCatalogue = !found.empty();
  found.emplace_back(kUntranslated);
  return boost::algorithm::join(found, ":");
}

void Localizer::SetLanguage(const std::string& code) {
  setenv(kVariable, FindCatalogues(code.empty() ? userLanguages : code).c_str(), 1);
  if (messagesLocale == nullptr) messagesLocale = newlocale(LC_MESSAGES_MASK, "C.UTF-8", nullptr);
  ++_nl_msg_cat_cntr;
}

UTF16String Localizer::Localize(const char* key) const {
  // gettext returns the catalogue's header for an empty message ID.
  if (key == nullptr || *key == '\0') return {};
  if (messagesLocale == nullptr) return utility::UTF8ToUTF16(EnglishText(key));
  const ScopedLocale scope(messagesLocale);
  const char* text = dgettext(kDomain, key);
  return utility::UTF8ToUTF16(text == key ? EnglishText(key) : text);
}

UTF16String Localizer::Localize(const char* key,
                                std::initializer_list<ReplacementValue> values) const {
  return WithReplacements(Localize(key).View(), values);
}

UTF16String Localizer::LocalizePlural(const char* key, const char* plural, unsigned long count,
                                      std::initializer_list<ReplacementValue> values) const {
  const char* text = count == 1 ? key : plural;
  if (messagesLocale != nullptr) {
    const ScopedLocale scope(messagesLocale);
    text = dngettext(kDomain, key, plural, count);
  }
  return WithReplacements(utility::UTF8ToUTF16(text == key ? EnglishText(key) : text).View(),
                          values);
}

char16_t Localizer::GetDecimalSign() const {
  const UTF16String sign = Localize(kDecimalSignKey);
  return sign.IsEmpty() ? u'.' : sign.View().front();
}

std::string Message(const char* key, std::initializer_list<std::string_view> values) {
  std::vector<ReplacementValue> replacements;
  for (const std::string_view value : values)
    replacements.emplace_back(utility::UTF8ToUTF16(value));
  const UTF16String text = WithReplacements(Localizer::Get().Localize(key).View(), replacements);
  return utility::UTF16ToUTF8(text.View());
}

}  // namespace nrvcore::config
