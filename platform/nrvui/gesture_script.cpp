#include "platform/nrvui/gesture_script.h"

#include <algorithm>
#include <array>

#include "platform/nrvcore/localizer.h"
#include "platform/nrvcore/unicode.h"
#include "platform/nrvui/number_text.h"

namespace nrvui::gestures {

using nrvcore::FileError;
using nrvcore::config::Message;

namespace {

constexpr std::size_t kMaxFileSize = 1 << 24;
constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct NamedVerb {
  std::string_view name;
  Verb verb;
  std::string_view form;
};

constexpr std::array kVerbs = {
    NamedVerb{"enter", Verb::kEnter, "enter ID TEXT"},
    NamedVerb{"click", Verb::kClick, "click ID"},
    NamedVerb{"key", Verb::kKey, "key Return, or key Escape"},
    NamedVerb{"close", Verb::kClose, "close"},
    NamedVerb{"resize", Verb::kResize, "resize WIDTH HEIGHT"},
};

std::string_view Trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

/// Removes the text up to the first of the characters `ends`, that character too, and returns the
/// part before it.
std::string_view TakeUntil(std::string_view& text, std::string_view ends) {
  const std::size_t end = std::min(text.find_first_of(ends), text.size());
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return taken;
}

std::string_view TakeWord(std::string_view& text) {
  text = Trimmed(text);
  const std::string_view word = TakeUntil(text, kBlanks);
  text = Trimmed(text);
  return word;
}

bool TakeNumber(std::string_view& text, float& number) {
  const std::string_view word = TakeWord(text);
  double parsed = 0;
  const auto [end, error] = controls::ReadNumber(word, parsed);
  number = static_cast<float>(parsed);
  return error == std::errc() && end == word.data() + word.size();
}

bool TakeArguments(std::string_view rest, Step& step) {
  switch (step.verb) {
    case Verb::kEnter:
      step.target = TakeWord(rest);
      step.text = rest;
      return !step.target.empty();
    case Verb::kClick:
      step.target = TakeWord(rest);
      return !step.target.empty() && rest.empty();
    case Verb::kKey:
      step.target = rest;
      return rest == "Return" || rest == "Escape";
    case Verb::kClose:
      return rest.empty();
    case Verb::kResize:
      break;
  }
  return TakeNumber(rest, step.width) && TakeNumber(rest, step.height) && rest.empty();
}

}  // namespace

GestureScript GestureScript::ReadFile(const std::filesystem::path& path) {
  return Parse(nrvcore::ReadFile(path, nrvcore::FileKind::kAny, kMaxFileSize), path.string());
}

GestureScript GestureScript::Parse(std::string_view text, const std::string& name) {
  GestureScript script;
  script.name = name;
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  for (std::size_t number = 1; !text.empty(); ++number) {
    std::string_view line = TakeUntil(text, "\n");
    if (!nrvcore::utility::IsValidUTF8(line)) {
      throw FileError(name, number,
                      Message("$$$/nrvui/Script/Encoding=the line is not UTF-8 text"));
    }
    line = Trimmed(TakeUntil(line, "#"));
    if (line.empty()) continue;
    const std::string_view word = TakeWord(line);
    const auto* verb = std::find_if(kVerbs.begin(), kVerbs.end(),
                                    [word](const NamedVerb& named) { return named.name == word; });
    if (verb == kVerbs.end()) {
      throw FileError(name, number,
                      Message("$$$/nrvui/Script/NoGesture=there is no gesture \"%1\"", {word}));
    }
    Step step;
    step.line = number;
    step.verb = verb->verb;
    if (!TakeArguments(line, step)) {
      throw FileError(name, number,
                      Message("$$$/nrvui/Script/Form=the expected form is: %1", {verb->form}));
    }
    script.steps.push_back(std::move(step));
  }
  return script;
}

}  // namespace nrvui::gestures
