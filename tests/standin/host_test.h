#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/standin/host.h"
#include "standin/temporary_folder.h"

using Lines = std::vector<std::string>;

/// A host whose resources are what a test writes, with one plug-in.
class HostTest : public testing::Test {
 protected:
  TemporaryFolder resources;
  standin::RecordingUserInterface screen;
  standin::Host host{screen, resources.path};
  const PluginRef plugin = host.AddPlugin("plugin.so");
};
