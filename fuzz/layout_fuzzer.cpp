#include <cstring>
#include <string>

#include "fuzz/require.h"
#include "platform/standin/layout_reader.h"
#include "platform/standin/resources.h"

/// A layout file: refused with a reason, or nodes of the size that it gives. None remains.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const standin::LiveToken token = standin::MakeLiveToken();
  try {
    const standin::SheetTree tree =
        standin::ParseLayout({reinterpret_cast<const char*>(data), size}, "layout.xml", token);
    Require(tree.view->UI_GetLocalRectF() == tree.layout->UI_GetLocalRectF());
  } catch (const standin::ResourceError& error) {
    Require(std::strlen(error.what()) > std::strlen("layout.xml: "));
  }
  Require(standin::CountLive(token) == 0);
  return 0;
}
