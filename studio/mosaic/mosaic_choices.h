#pragma once

#include <optional>

#include "mosaic/mosaic_suite.h"

struct Artwork;

/// What a run of the dialog leaves behind for the next one.
struct MosaicChoices {
  MosaicParameters params{};
  MosaicDialogState state{};
};

/// The record for the dialog over this picture. `former` are the choices made for it before, if
/// any; otherwise flags and tiles across are the last ones, or else a hundred across, and the tiles
/// are square.
MosaicChoices ChoicesFor(const Artwork& artwork, const std::optional<MosaicChoices>& last,
                         const std::optional<MosaicChoices>& former = {});
