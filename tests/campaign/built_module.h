#pragma once

#include <gtest/gtest.h>

#include "mosaic/mosaic_suite.h"
#include "platform/standin/held_suite.h"
#include "platform/standin/host.h"
#include "platform/standin/module.h"

/// The built module, started under a host; nothing may be left of it in the end.
class BuiltModule {
 public:
  explicit BuiltModule(const std::filesystem::path& resources = standin::DefaultResourceRoot())
      : host(person, resources) {
    EXPECT_EQ(module.StartUp(), ResultCode::kSuccess);
  }
  ~BuiltModule() {
    EXPECT_EQ(module.ShutDown(), ResultCode::kSuccess);
    EXPECT_EQ(host.Leftovers(), std::vector<std::string>{});
  }

  /// A caller of its suite.
  ResultCode RunDialog(MosaicParameters& record, MosaicDialogState& state) {
    MosaicParameters* params = &record;
    return standin::HeldSuite<MosaicSuite>(host)->RunMosaicDialog(&state, &params);
  }

  standin::RecordingUserInterface person;
  standin::Host host;
  standin::Module module{host, MODULE_FILE};
};
