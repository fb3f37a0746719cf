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

/// A key in the user's language, with `values` in the places of %1 to %4.
template <typename... Values>
QString Text(const char* key, const Values&... values) {
  using nrvcore::config::ReplacementValue;
  return FromToolkit(
      nrvcore::config::Localizer::Get().Localize(key, {ReplacementValue(ToToolkit(values))...}));
}

/// The form for `count` things of a text with a plural, with `values` in the places of %1 to %4;
/// see Localizer::LocalizePlural. scripts/check-translations knows the keys by this function's
/// name.
template <typename... Values>
QString PluralText(const char* key, const char* plural, uint64_t count, const Values&... values) {
  using nrvcore::config::ReplacementValue;
  return FromToolkit(nrvcore::config::Localizer::Get().LocalizePlural(
      key, plural, count, {ReplacementValue(ToToolkit(values))...}));
}

inline constexpr int kMostDecimals = 12;

/// A number for a file, with at most `decimals` decimals, 0 to kMostDecimals, and no more digits
/// than it needs. Halves of the last decimal are rounded away from 0; the toolkit's number fields
/// round them to an even digit. Values from 1e18 divided by ten to the power of `decimals` on are
/// not defined.
std::string NumberText(double value, int decimals = 4);

/// The same for texts that people read, not for fields: with the user's decimal sign, and a "," or
/// "." between thousands, whichever is not the decimal sign: "1,234.5".
QString NumberForUser(double value);
