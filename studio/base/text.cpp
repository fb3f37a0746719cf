#include "studio/base/text.h"

#include <charconv>
#include <cmath>

namespace {

constexpr int kDecimals = 4;
constexpr double kUnit = 10000;

}  // namespace

std::string NumberText(double value) {
  char digits[32];
  const int64_t units = std::llround(std::fabs(value) * kUnit);
  const char* end = std::to_chars(digits, digits + sizeof digits, units).ptr;
  std::string text(digits, size_t(end - digits));
  if (text.size() <= kDecimals) text.insert(0, kDecimals + 1 - text.size(), '0');
  text.insert(text.size() - kDecimals, 1, '.');
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  if (value < 0 && units != 0) text.insert(0, 1, '-');
  return text;
}

QString NumberForUser(double value) {
  const QChar sign(nrvcore::config::Localizer::Get().GetDecimalSign());
  return QString::fromStdString(NumberText(value)).replace('.', sign);
}
