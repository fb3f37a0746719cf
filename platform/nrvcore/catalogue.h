#pragma once

#include <filesystem>

namespace nrvcore::config {

/// Whether the file is a gettext catalogue that can be used: a table of texts in UTF-8 whose places
/// all lie in the file, without a table of hashes (msgfmt --no-hash), in which gettext can step on
/// without an end. gettext looks at none of this and crashes on a damaged one. False also when it
/// is no ordinary file or cannot be read.
bool IsSoundCatalogue(const std::filesystem::path& file);

}  // namespace nrvcore::config
