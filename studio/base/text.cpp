#include "studio/base/text.h"

#include <charconv>
#include <cmath>
#include <iterator>

std::string NumberText(double value, int decimals) {
  constexpr double kUnits[] = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12};
  static_assert(std::size(kUnits) == kMostDecimals + 1);
  char digits[32];
  const int64_t units = std::llround(std::fabs(value) * kUnits[decimals]);
  const char* end = std::to_chars(digits, digits + sizeof digits, units).ptr;
  std::string text(digits, size_t(end - digits));
  const auto behindPoint = size_t(decimals);
  if (text.size() <= behindPoint) text.insert(0, behindPoint + 1 - text.size(), '0');
  text.insert(text.size() - behindPoint, 1, '.');
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  if (value < 0 && units != 0) text.insert(0, 1, '-');
  return text;
}

QString NumberForUser(double value, int decimals) {
  const QChar sign(nrvcore::config::Localizer::Get().GetDecimalSign());
  QString text = QString::fromStdString(NumberText(value, decimals)).replace('.', sign);
  const qsizetype start = value < 0 ? 1 : 0;
  const qsizetype end = text.indexOf(sign);
  for (qsizetype i = (end < 0 ? text.size() : end) - 3; i > start; i -= 3)
    text.insert(i, sign == '.' ? ',' : '.');
  return text;
}
