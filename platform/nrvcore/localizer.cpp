#include "platform/nrvcore/localizer.h"

#include <libintl.h>

#include <algorithm>
#include <boost/algorithm/string/join.hpp>
#include <boost/core/noncopyable.hpp>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <span>
#include <utility>
#include <vector>

#include "platform/nrvcore/unicode.h"

// gettext clears its cache of lookups when this changes; its manual documents it for this purpose.
extern "C" int _nl_msg_cat_cntr;  // NOLINT(readability-identifier-naming)

namespace nrvcore::config {

namespace {

constexpr const char* kDomain = "tesserae";
constexpr const char* kDecimalSignKey = "$$$/nrvcore/Locale/DecimalSign=.";
constexpr const char* kUntranslated = "C";
constexpr const char* kVariable = "LANGUAGE";  // where gettext looks for the user's languages

std::string FromEnvironment(std::initializer_list<const char*> names) {
  for (const char* name : names) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

/// As in gettext, LANGUAGE counts only when the locale is not "C".
std::string LanguageOfEnvironment() {
  const std::string locale = FromEnvironment({"LC_ALL", "LC_MESSAGES", "LANG"});
  if (locale.empty() || locale == "C" || locale == "POSIX") return kUntranslated;
  return FromEnvironment({kVariable, "LC_ALL", "LC_MESSAGES", "LANG"});
}

class LocaleInUse : boost::noncopyable {
 public:
  explicit LocaleInUse(locale_t locale) : former(uselocale(locale)) {}
  ~LocaleInUse() { uselocale(former); }

 private:
  locale_t former;
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
    const bool isPlace = index < values.size();
    out.Append(isPlace ? values[index].Text().View() : text.substr(0, 1));
    text.remove_prefix(isPlace ? 2 : 1);
  }
  return out;
}

}  // namespace

ReplacementValue::ReplacementValue() noexcept = default;
ReplacementValue::ReplacementValue(UTF16String replacement) : text(std::move(replacement)) {}
ReplacementValue::ReplacementValue(const ReplacementValue& other) = default;
ReplacementValue::~ReplacementValue() = default;
ReplacementValue& ReplacementValue::operator=(const ReplacementValue& other) = default;

const UTF16String& ReplacementValue::Text() const noexcept {
  return text;
}

Localizer& Localizer::Get() {
  static Localizer localizer;
  return localizer;
}

Localizer::Localizer() : userLanguage(LanguageOfEnvironment()) {
  if (const char* value = std::getenv(kVariable)) formerVariable = value;
  bind_textdomain_codeset(kDomain, "UTF-8");
}

Localizer::~Localizer() {
  if (messagesLocale == nullptr) return;
  freelocale(messagesLocale);
  // The environment outlives the library; the next localizer must find the user's languages.
  if (formerVariable) {
    setenv(kVariable, formerVariable->c_str(), 1);
  } else {
    unsetenv(kVariable);
  }
}

void Localizer::SetCatalogues(const std::string& cataloguesFolder) {
  folder = cataloguesFolder;
  bindtextdomain(kDomain, folder.c_str());
}

std::string Localizer::WithCatalogue(std::string_view languages) {
  std::vector<std::string> found;
  while (!languages.empty()) {
    std::string_view language = languages.substr(0, languages.find(':'));
    languages.remove_prefix(std::min(language.size() + 1, languages.size()));
    if (language.find('/') != language.npos) continue;
    // "de_CH.UTF-8" may have a catalogue of its own, or that of "de_CH" or of "de".
    for (const char* end : {"", "@", ".@", "_.@"}) {
      language = language.substr(0, language.find_first_of(end));
      const auto file =
          std::filesystem::path(folder) / language / "LC_MESSAGES" / (std::string(kDomain) + ".mo");
      std::error_code error;
      if (std::count(found.begin(), found.end(), language) == 0 && is_regular_file(file, error))
        found.emplace_back(language);
    }
    if (language == "en" || language == kUntranslated) break;  // the keys themselves
  }
  hasCatalogue = !found.empty();
  found.emplace_back(kUntranslated);
  return boost::algorithm::join(found, ":");
}

void Localizer::SetLanguage(const std::string& code) {
  setenv(kVariable, WithCatalogue(code.empty() ? userLanguage : code).c_str(), 1);
  if (messagesLocale == nullptr) messagesLocale = newlocale(LC_MESSAGES_MASK, "C.UTF-8", nullptr);
  ++_nl_msg_cat_cntr;
}

UTF16String Localizer::Localize(const char* key) const {
  // The empty message is a catalogue's header.
  if (key == nullptr || *key == '\0') return {};
  if (messagesLocale == nullptr) return utility::UTF8ToUTF16(EnglishText(key));
  const LocaleInUse inUse(messagesLocale);
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
    const LocaleInUse inUse(messagesLocale);
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
