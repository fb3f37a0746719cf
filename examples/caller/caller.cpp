// A plug-in that opens the mosaic dialog when the user chooses the plug-in's menu entry.

#include <cstdio>
#include <cstring>

#include "mosaic/mosaic_suite.h"
#include "platform/suites/host_suites.h"
#include "platform/suites/message_names.h"

namespace {

// The state that the last dialog returned. A plug-in that can be unloaded keeps it in a block of
// the host instead.
MosaicDialogState state = {};

ResultCode AskForMosaic(const QPBasicSuite& basic) {
  MosaicParameters record = {};
  record.isColor = 1;
  record.tilesAcross = 30;
  record.tilesDown = 20;
  record.boundsRight = 300;  // of the placed picture, in points
  record.boundsBottom = 200;

  const void* table = nullptr;
  const ResultCode found = basic.Acquire(MosaicSuite::kName, MosaicSuite::kVersion, &table);
  if (Failed(found)) return found;
  MosaicParameters* address = &record;
  const auto* suite = static_cast<const MosaicSuite*>(table);
  const ResultCode result = suite->RunMosaicDialog(&state, &address);
  (void)basic.Release(MosaicSuite::kName, MosaicSuite::kVersion);

  if (result == ResultCode::kCancelled) return ResultCode::kSuccess;
  // A real caller builds the mosaic here.
  if (!Failed(result)) std::printf("%d by %d tiles\n", record.tilesAcross, record.tilesDown);
  return result;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) ResultCode PluginMain(const char* caller,
                                                                        const char* selector,
                                                                        PluginMessage* message) {
  const bool isMenu = caller && selector && std::strcmp(caller, messages::kMenuGo.caller) == 0 &&
                      std::strcmp(selector, messages::kMenuGo.selector) == 0;
  return isMenu ? AskForMosaic(*message->basicSuite) : ResultCode::kSuccess;
}
