#pragma once

#include <QString>
#include <string>

#include "platform/nrvcore/localizer.h"

inline nrvcore::config::ReplacementValue Replacement(const QString& text) {
  const auto* units = reinterpret_cast<const char16_t*>(text.utf16());
  return nrvcore::config::ReplacementValue(
      nrvcore::UTF16String(std::u16string_view(units, size_t(text.size()))));
}

/// A key in the user's language, with `values` in the places of %1 to %4.
template <typename... Values>
QString Text(const char* key, const Values&... values) {
  const auto text = nrvcore::config::Localizer::Get().Localize(key, {Replacement(values)...});
  return QString::fromUtf16(text.View().data(), qsizetype(text.View().size()));
}

/// A number for a file, with at most four decimals and no more digits than it needs. Halves of the
/// last decimal are rounded away from 0; the toolkit's number fields round them to an even digit.
std::string NumberText(double value);

/// The same with the decimal sign of the user's language.
QString NumberForUser(double value);
