#include "host/failure_report.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include "host/bounded_string.h"
#include "host/resource_text.h"
#include "host/suite_access.h"
#include "host/unicode_string.h"

namespace {

// The plug-in's list: pairs of a key and its text. The last text is also the default.
constexpr int32_t kErrorTextList = 16050;

// The end of the search, in case the host returns a text for every index.
constexpr int32_t kGreatestIndex = 32767;

// The host's list: the text of error number n has index n.
constexpr int32_t kHostErrorList = 257;
constexpr int32_t kFirstHostError = 10;
constexpr int32_t kEndOfHostErrors = 900;

// A greater code is shown as its four characters if all can be displayed. Other codes are shown as
// numbers.
constexpr int32_t kGreatestPlainNumber = 16384;

// Characters of flags, width and precision in a default text; a longer width makes printf slow.
constexpr size_t kLongestWidth = 4;

// A default text of this length or more is shown unformatted.
constexpr size_t kFormattedTextLimit = 120;

constexpr int32_t kSilentCodes[] = {
    FourCharCode("FMT?"),
    FourCharCode("RFSE"),
    FourCharCode("AFTR"),
    FourCharCode("VALD"),
    FourCharCode("MOOT"),
    FourCharCode("TRSH"),
    FourCharCode("CHEK"),
    FourCharCode("CHIT"),
    FourCharCode("TLTK"),
    FourCharCode("pFls"),
    FourCharCode("S!Fd"),
    FourCharCode("!Acq"),
    FourCharCode("Bchn"),
    FourCharCode("dsRP"),
    FourCharCode("skpE"),
    FourCharCode("DONE"),
    FourCharCode("ASTR"),
    FourCharCode("STOP"),
    361,
};

int32_t ValueOfKey(const char* key) {
  if (key[0] == '-' || (key[0] >= '0' && key[0] <= '9'))
    return static_cast<int32_t>(std::strtol(key, nullptr, 10));
  char code[5] = {};
  BoundedCopy(code, sizeof(code), key, sizeof(code));
  return FourCharCode(code);
}

bool LookupHostText(int32_t number, char (&text)[kListTextSize]) {
  if (number < kFirstHostError || number >= kEndOfHostErrors) return false;
  const ScopedSuite<GlossaHostInitSuite> host;
  const ModuleRef module = host ? host->GetHostModule() : nullptr;
  return module && ReadListEntry(module, kHostErrorList, number, text, kListTextSize);
}

void WriteCode(int32_t code, char (&text)[12]) {
  if (code > kGreatestPlainNumber) {
    const int characters[] = {code >> 24, code >> 16 & 0xFF, code >> 8 & 0xFF, code & 0xFF};
    const auto isDisplayable = [](int character) { return character >= ' ' && character <= '~'; };
    if (std::all_of(std::begin(characters), std::end(characters), isDisplayable)) {
      FormatInto(text, "%c%c%c%c", characters[0], characters[1], characters[2], characters[3]);
    } else {
      FormatInto(text, "%d", code);
    }
    return;
  }
  char number[10];  // truncates to nine characters
  FormatInto(number, "%d", code);
  BoundedCopy(text, sizeof(text), number, sizeof(number));
}

// Whether the text is safe as a format for one string argument: exactly one %s, of any width, and
// otherwise only %%.
bool TakesOneString(const char* text) {
  int strings = 0;
  for (const char* c = std::strchr(text, '%'); c; c = std::strchr(c + 1, '%')) {
    const size_t width = std::strspn(c + 1, "-0123456789.");
    if (width > kLongestWidth) return false;
    c += 1 + width;
    if (*c == 's') ++strings;
    if (*c != 's' && *c != '%') return false;
  }
  return strings == 1;
}

/// Reads the plug-in's text for a code into `text`. Returns `text`, or null if there is none. Sets
/// `*isDefault` if it is the default text, which contains one "%s" for the code.
const char* LookupErrorText(PluginRef plugin, ResultCode code, char (&text)[kListTextSize],
                            bool* isDefault) {
  char key[32];
  int32_t index = 1;
  while (index < kGreatestIndex && ReadListEntry(plugin, kErrorTextList, index, key, sizeof(key))) {
    if (ValueOfKey(key) == static_cast<int32_t>(code)) {
      return ReadListEntry(plugin, kErrorTextList, index + 1, text, sizeof(text)) ? text : nullptr;
    }
    index += 2;
  }
  if (index == 1) return nullptr;
  *isDefault = true;
  return ReadListEntry(plugin, kErrorTextList, index - 1, text, sizeof(text)) ? text : nullptr;
}

void FindAndShow(PluginRef plugin, ResultCode code) {
  const ScopedSuite<KDMBasicSuite> lists;
  if (!lists) return;
  const ScopedSuite<VXUserSuite> user;
  if (!user) return;

  char ownText[kListTextSize];
  char hostText[kListTextSize];
  bool isDefault = false;
  const int32_t number = static_cast<int32_t>(code);
  const char* text = LookupErrorText(plugin, code, ownText, &isDefault);
  if ((!text || isDefault) && LookupHostText(number, hostText)) {
    text = hostText;
    isDefault = false;
  }
  if (!text) return;

  char formatted[kListTextSize];
  if (isDefault && std::strlen(text) < kFormattedTextLimit && TakesOneString(text)) {
    char codeText[12];
    WriteCode(number, codeText);
    FormatInto(formatted, text, codeText);
    text = formatted;
  }

  const ScopedSuite<VXUnicodeStringSuite> strings;
  if (!strings) return;
  const vx::UnicodeString message(text);
  (void)user->ShowErrorAlert(message.Handle());
}

}  // namespace

bool IsSilent(ResultCode code) {
  return std::find(std::begin(kSilentCodes), std::end(kSilentCodes), static_cast<int32_t>(code)) !=
         std::end(kSilentCodes);
}

void ShowFailure(PluginRef plugin, ResultCode code) noexcept {
  if (IsSilent(code)) return;
  try {
    FindAndShow(plugin, code);
  } catch (...) {
    // The host still gets the code of the message.
  }
}
