#include <cstring>
#include <string>

#include "fuzz/fuzzer.h"
#include "platform/nrvcore/file.h"
#include "platform/standin/layout_reader.h"

/// The input is a layout file. Parsing throws an error with a reason, or makes nodes of the size
/// that the file states; no node is leaked.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const standin::LiveToken token = standin::MakeLiveToken();
  try {
    const standin::SheetTree tree =
        standin::ParseLayout({reinterpret_cast<const char*>(data), size}, "layout.xml", token);
    Require(tree.view->UI_GetLocalRectF() == tree.layout->UI_GetLocalRectF());
  } catch (const nrvcore::FileError& error) {
    Require(std::strlen(error.what()) > std::strlen("layout.xml: "));
  }
  Require(standin::CountLive(token) == 0);
  return 0;
}
