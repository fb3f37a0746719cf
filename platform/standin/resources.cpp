#include "platform/standin/resources.h"

#define BOOST_DLL_USE_STD_FS
#include <boost/dll/runtime_symbol_info.hpp>

namespace standin {

ResourceFolders ResourceFolders::OfProgram() {
  std::error_code error;  // the location is then empty
  const std::filesystem::path tree =
      boost::dll::program_location(error).parent_path().parent_path();
  return {tree / "share/tesserae", tree / "lib/tesserae/plugins/TesseraeUI"};
}

}  // namespace standin
