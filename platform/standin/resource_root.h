#pragma once

#include <filesystem>

namespace standin {

/// The folder of the resources that belong to the running program: "resources" beside the
/// program's own folder; where the system does not tell that one, "resources" in the current
/// folder.
std::filesystem::path DefaultResourceRoot();

}  // namespace standin
