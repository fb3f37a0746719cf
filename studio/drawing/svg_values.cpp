#include "studio/drawing/svg_values.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <numbers>
#include <vector>

#include "studio/base/studio_error.h"

namespace {

constexpr double kPixelsPerInch = 96;

struct Unit {
  std::string_view name;
  double size;
};

constexpr Unit kLengthUnits[] = {{"", 1},
                                 {"px", 1},
                                 {"pt", kPixelsPerInch / 72},
                                 {"pc", kPixelsPerInch / 6},
                                 {"in", kPixelsPerInch},
                                 {"cm", kPixelsPerInch / 2.54},
                                 {"mm", kPixelsPerInch / 25.4},
                                 {"q", kPixelsPerInch / 101.6}};
constexpr Unit kAngleUnits[] = {
    {"", 1}, {"deg", 1}, {"grad", 0.9}, {"rad", 180 / std::numbers::pi}, {"turn", 360}};

bool IsSpace(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsSpace(text.back())) text.remove_suffix(1);
  return text;
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = c >= 'A' && c <= 'Z' ? char(c + 32) : c;
  return lower;
}

[[noreturn]] void Refuse(std::string_view text) {
  constexpr int kShown = 60;
  throw StudioError("$$$/Studio/Drawing/BadValue=\"%1\" is not a valid value",
                    QString::fromUtf8(text.data(), qsizetype(text.size())).left(kShown));
}

/// Reads the parts of a value from left to right.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : whole(text), rest(Trimmed(text)) {}

  bool IsAtEnd() const { return rest.empty(); }
  void SkipSpace() { rest = Trimmed(rest); }

  /// Skips the next character if it is `c`, and returns whether it was.
  bool Skip(char c) {
    if (rest.empty() || rest.front() != c) return false;
    rest.remove_prefix(1);
    return true;
  }

  void SkipSeparator() {
    SkipSpace();
    if (Skip(',')) SkipSpace();
  }

  double Number() {
    if (rest.size() > 1 && rest[0] == '+' && rest[1] != '-') rest.remove_prefix(1);
    double value = 0;
    const char* const end = rest.data() + rest.size();
    const auto [next, error] = std::from_chars(rest.data(), end, value);
    if (error != std::errc() || !std::isfinite(value)) Refuse(whole);
    rest.remove_prefix(size_t(next - rest.data()));
    return value;
  }

  std::string_view Name() {
    size_t length = 0;
    while (length < rest.size() && (std::isalnum(uint8_t(rest[length])) || rest[length] == '%'))
      ++length;
    const std::string_view name = rest.substr(0, length);
    rest.remove_prefix(length);
    return name;
  }

  /// The text before the next `c`; continues after it.
  std::string_view Until(char c) {
    const size_t end = rest.find(c);
    if (end == std::string_view::npos) Refuse(whole);
    const std::string_view text = rest.substr(0, end);
    rest.remove_prefix(end + 1);
    return text;
  }

 private:
  const std::string_view whole;
  std::string_view rest;
};

/// A list of numbers, separated by white space or commas, converted to the first unit.
template <size_t kCount>
std::vector<double> Numbers(std::string_view text, const Unit (&units)[kCount]) {
  Scanner scanner(text);
  std::vector<double> numbers;
  while (!scanner.IsAtEnd()) {
    const double number = scanner.Number();
    const std::string name = Lower(scanner.Name());
    const auto* const unit = std::find_if(std::begin(units), std::end(units),
                                          [&](const Unit& known) { return known.name == name; });
    if (unit == std::end(units)) Refuse(text);
    numbers.push_back(number * unit->size);
    scanner.SkipSeparator();
  }
  return numbers;
}

double Radians(double degrees) {
  return degrees / 180 * std::numbers::pi;
}

QTransform Function(const std::string& name, std::string_view arguments) {
  if (name == "translate" || name == "translatex" || name == "translatey") return {};
  const std::vector<double> values = Numbers(arguments, kAngleUnits);
  const size_t count = values.size();
  const double first = count > 0 ? values[0] : 0;
  const double second = count > 1 ? values[1] : 0;
  if (name == "matrix" && count == 6) return {first, second, values[2], values[3], 0, 0};
  if (name == "scale" && count == 1) return QTransform::fromScale(first, first);
  if (name == "scale" && count == 2) return QTransform::fromScale(first, second);
  if (name == "scalex" && count == 1) return QTransform::fromScale(first, 1);
  if (name == "scaley" && count == 1) return QTransform::fromScale(1, first);
  if (name == "rotate" && (count == 1 || count == 3)) return QTransform().rotate(first);
  if (name == "skewx" && count == 1) return {1, 0, std::tan(Radians(first)), 1, 0, 0};
  if (name == "skewy" && count == 1) return {1, std::tan(Radians(first)), 0, 1, 0, 0};
  if (name == "skew" && (count == 1 || count == 2))
    return {1, std::tan(Radians(second)), std::tan(Radians(first)), 1, 0, 0};
  Refuse(name + "(" + std::string(arguments) + ")");
}

/// 0 for "Min", 0.5 for "Mid", 1 for "Max".
double Alignment(std::string_view name, std::string_view whole) {
  if (name == "Min") return 0;
  if (name == "Mid") return 0.5;
  if (name == "Max") return 1;
  Refuse(whole);
}

/// Adds a "name: value"; a text without a colon is ignored.
void AddDeclaration(std::string_view text, std::map<std::string, Declaration>& declarations) {
  const size_t colon = text.find(':');
  if (colon == std::string_view::npos) return;
  std::string_view value = text.substr(colon + 1);
  const size_t mark = value.rfind('!');
  const bool isImportant =
      mark != std::string_view::npos && Lower(Trimmed(value.substr(mark + 1))) == "important";
  if (isImportant) value = value.substr(0, mark);
  Declaration& declaration = declarations[Lower(Trimmed(text.substr(0, colon)))];
  if (isImportant || !declaration.isImportant)
    declaration = {std::string(Trimmed(value)), isImportant};
}

}  // namespace

std::optional<double> ParseLength(std::string_view text, const LengthBase& base) {
  if (Trimmed(text).empty() || Trimmed(text) == "auto") return std::nullopt;
  Scanner scanner(text);
  const double number = scanner.Number();
  const std::string unit = Lower(scanner.Name());
  if (!scanner.IsAtEnd()) Refuse(text);
  if (unit == "%") return number / 100 * base.whole;
  if (unit == "em") return number * base.fontSize;
  if (unit == "ex" || unit == "ch") return number * base.fontSize / 2;
  for (const auto& [name, size] : kLengthUnits) {
    if (unit == name) return number * size;
  }
  Refuse(text);
}

QTransform ParseTransform(std::string_view text) {
  QTransform transform;
  if (Trimmed(text) == "none") return transform;
  Scanner scanner(text);
  while (!scanner.IsAtEnd()) {
    const std::string name = Lower(Trimmed(scanner.Until('(')));
    transform = Function(name, scanner.Until(')')) * transform;
    scanner.SkipSeparator();
  }
  return transform;
}

std::optional<QRectF> ParseViewBox(std::string_view text) {
  constexpr Unit kNoUnit[] = {{"", 1}};
  const std::vector<double> numbers = Numbers(text, kNoUnit);
  if (numbers.empty()) return std::nullopt;
  if (numbers.size() != 4) Refuse(text);
  const QRectF box(numbers[0], numbers[1], numbers[2], numbers[3]);
  return box.width() > 0 && box.height() > 0 ? std::optional(box) : std::nullopt;
}

AspectRatio AspectRatio::Parse(std::string_view text) {
  AspectRatio ratio;
  Scanner scanner(text);
  std::string_view name = scanner.Name();
  if (name == "defer") scanner.SkipSpace(), name = scanner.Name();
  if (name == "none") {
    ratio.isNone = true;
  } else if (name.size() == 8 && name[0] == 'x' && name[4] == 'Y') {
    ratio.alignX = Alignment(name.substr(1, 3), text);
    ratio.alignY = Alignment(name.substr(5), text);
  } else if (!name.empty()) {
    Refuse(text);
  }
  scanner.SkipSpace();
  const std::string_view how = scanner.Name();
  ratio.isSlice = how == "slice";
  if (!scanner.IsAtEnd() || (!how.empty() && how != "meet" && how != "slice")) Refuse(text);
  return ratio;
}

QRectF AspectRatio::Fit(QSizeF content, const QRectF& viewport) const {
  if (isNone) return viewport;
  const QSizeF size = content.scaled(
      viewport.size(), isSlice ? Qt::KeepAspectRatioByExpanding : Qt::KeepAspectRatio);
  return {viewport.x() + (viewport.width() - size.width()) * alignX,
          viewport.y() + (viewport.height() - size.height()) * alignY, size.width(), size.height()};
}

std::map<std::string, Declaration> ParseStyle(std::string_view text) {
  std::map<std::string, Declaration> declarations;
  std::string declaration;
  char quote = 0;        // that the open string began with; 0 outside of strings
  std::string unclosed;  // the closing parentheses that are missing
  for (size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (c == '\\') {
      if (at + 1 < text.size()) declaration += text.substr(at, 2);
      ++at;
      continue;
    }
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (c == '"' || c == '\'') {
      quote = c;
    } else if (c == '(') {
      unclosed += ')';
    } else if (c == ')' && !unclosed.empty()) {
      unclosed.pop_back();
    } else if (unclosed.empty() && c == ';') {
      AddDeclaration(declaration, declarations);
      declaration.clear();
      continue;
    } else if (unclosed.empty() && text.substr(at, 2) == "/*") {
      const size_t end = text.find("*/", at + 2);
      if (end == std::string_view::npos) break;
      at = end + 1;
      continue;
    }
    declaration += c;
  }
  if (quote != 0) declaration += quote;
  AddDeclaration(declaration + unclosed, declarations);
  return declarations;
}
