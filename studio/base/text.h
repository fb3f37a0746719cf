#pragma once

#include <QString>
#include <cstdint>
#include <string>

#include "platform/nrvcore/localizer.h"

inline QString FromToolkit(const nrvcore::UTF16String& text) {
  return QString::fromUtf16(text.View().data(), qsizetype(text.View().size()));
}

inline nrvcore::UTF16String ToToolkit(const QString& text) {
  return nrvcore::UTF16String(text.toStdU16String());
}

/// The text of a key in the user's language, with `values` in place of %1 to %4.
template <typename... Values>
QString Text(const char* key, const Values&... values) {
  using nrvcore::config::ReplacementValue;
  return FromToolkit(
      nrvcore::config::Localizer::Get().Localize(key, {ReplacementValue(ToToolkit(values))...}));
}

/// The same for a text with a plural, in its form for `count`; see Localizer::LocalizePlural.
/// scripts/check-translations finds these keys by the function's name.
template <typename... Values>
QString PluralText(const char* key, const char* plural, uint64_t count, const Values&... values) {
  using nrvcore::config::ReplacementValue;
  return FromToolkit(nrvcore::config::Localizer::Get().LocalizePlural(
      key, plural, count, {ReplacementValue(ToToolkit(values))...}));
}

inline constexpr int kMostDecimals = 12;

/// A number as files contain it, rounded to `decimals` decimals, 0 to kMostDecimals, without
/// trailing zeros. Halves are rounded away from 0; the toolkit's number fields round them to an
/// even digit. The absolute value must be less than 1e18 / 10^decimals.
std::string NumberText(double value, int decimals = 4);

/// The same for texts, not for fields: with the user's decimal sign, and with "," or "." as the
/// thousands separator, whichever is not the decimal sign: "1,234.5".
QString NumberForUser(double value, int decimals = 4);
