#include <string_view>

#include "fuzz/fuzzer.h"
#include "platform/nrvui/gesture_script.h"

using nrvcore::FileError;
using nrvui::gestures::GestureScript;
using nrvui::gestures::Step;

/// The input is a gesture file. Parsing throws an error with line and reason, or returns the steps
/// in the order of their lines.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  try {
    const auto script = GestureScript::Parse({reinterpret_cast<const char*>(data), size}, "file");
    size_t line = 0;
    for (const Step& step : script.Steps()) {
      Require(step.line > line);
      line = step.line;
      Require(step.text.find('\n') == step.text.npos && step.target.find(' ') == step.target.npos);
    }
  } catch (const FileError& error) {
    Require(std::string_view(error.what()).find(": ", sizeof("file:")) != std::string_view::npos);
  }
  return 0;
}
