#pragma once

#include <filesystem>

namespace standin {

/// The folder of the resources that belong to the running program: "share/tesserae" beside the
/// program's folder where it is installed, "resources" there where it was built. The latter is
/// also the answer when there is neither.
std::filesystem::path DefaultResourceRoot();

}  // namespace standin
