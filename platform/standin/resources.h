#pragma once

#include <filesystem>

#include "platform/nrvcore/file.h"

namespace standin {

/// The folders that hold a host's resources.
struct ResourceFolders {
  std::filesystem::path host;    // the host's lists, in "host", and the "translations"
  std::filesystem::path plugin;  // the plug-in's "layouts" and "strings", and its module's file

  /// The folders of the running program, relative to its own file; the build folder is laid out as
  /// an installed tree is. Relative to the current folder if the program's file is unknown.
  static ResourceFolders OfProgram();
};

}  // namespace standin
