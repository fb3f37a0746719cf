#pragma once

#include "mosaic/mosaic_suite.h"
#include "platform/standin/host.h"
#include "platform/standin/module.h"

/// A module under a host of its own, not yet started, and a caller of its suite.
template <class Module>
struct ModuleUnderHost {
  explicit ModuleUnderHost(
      const std::filesystem::path& file,
      const standin::ResourceFolders& resources = standin::ResourceFolders::OfProgram())
      : host(person, resources), module(host, file) {}

  /// Calls the function of the published suite; kCannot where none is published.
  ResultCode RunDialog(MosaicParameters& record, MosaicDialogState& state) {
    const auto* suite = host.Suites().template Find<MosaicSuite>();
    MosaicParameters* params = &record;
    return suite ? suite->RunMosaicDialog(&state, &params) : ResultCode::kCannot;
  }

  standin::RecordingUserInterface person;
  standin::Host host;
  Module module;
};

using HostedModule = ModuleUnderHost<standin::Module>;

/// A caller's record with a source of 300 by 200 points and 30 by 20 tiles.
inline MosaicParameters SampleRecord() {
  MosaicParameters record{};
  record.isColor = record.keepHorizontal = 1;
  record.tilesAcross = 30;
  record.tilesDown = 20;
  record.boundsLeft = -50;
  record.boundsTop = 40;
  record.boundsRight = 250;
  record.boundsBottom = 240;
  return record;
}
