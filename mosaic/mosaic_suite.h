#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/suites/result_code.h"

/// The interface for callers of the mosaic dialog: acquire MosaicSuite::kName, version
/// MosaicSuite::kVersion, from the host, fill a MosaicParameters, call RunMosaicDialog, and on
/// success build the mosaic from the returned record. Lengths are in points of 1/72 inch.

/// The caller's record. The dialog works on a copy and writes all 80 bytes back on OK, and only on
/// OK; bytes that it does not set are returned unchanged. Spacings and new size are not read.
///
/// Flags: any value but 0 counts as 1. A flag that the user does not change keeps its value.
/// Counts, spacings, new size: user input is clamped to the range given below; counts and spacings
/// are returned truncated to integers. A count or size that the caller or the ratio button has set
/// is not clamped; it lies between -32768 and 32767.
/// Spacings: at most the tile count minus two, but at least 0; clamped when the dialog opens and
/// whenever the user changes a count. The ratio button changes a count without clamping its
/// spacing.
/// New size: in points, or in percent mode the percentage divided by 100.
struct MosaicParameters {
  uint8_t reserved0[8];           // passes through
  uint8_t isColor;                // in, out: colour tiles; 0: grey tiles
  uint8_t deleteRaster;           // in, out: delete the raster after building the mosaic
  uint8_t keepHorizontal;         // in, out: the ratio button keeps the horizontal values
  uint8_t reserved11;             // passes through
  int32_t tilesAcross;            // in (its low 16 bits), out: user input 1 to 8640
  int32_t tilesDown;              // in (its low 16 bits), out: user input 1 to 8640
  int32_t tileSpacingHorizontal;  // out: whole points, at least 0
  int32_t tileSpacingVertical;    // out: whole points, at least 0
  int32_t reserved28;             // out: 0
  int32_t reserved32;             // out: 0
  int32_t tilesAcrossCopy;        // out: the same as tilesAcross
  int32_t tilesDownCopy;          // out: the same as tilesDown
  int32_t boundsLeft;             // in: bounds of the source picture; a width or height above
                                  // 32767 is shown modulo 2^16, as a signed number
  int32_t boundsTop;              // in
  int32_t boundsRight;            // in
  int32_t boundsBottom;           // in
  int32_t reserved60;             // out: 0
  int32_t reserved64;             // out: 0
  float newWidth;                 // out: user input 0 to 8640 points, in percent mode 0 to 1
  float newHeight;                // out: the same rule
  uint8_t sizeUnavailable;        // in: the source's size is unknown; percent mode is forced
  uint8_t reserved77[3];          // passes through
};

static_assert(sizeof(MosaicParameters) == 80, "");
static_assert(offsetof(MosaicParameters, isColor) == 8, "");
static_assert(offsetof(MosaicParameters, deleteRaster) == 9, "");
static_assert(offsetof(MosaicParameters, keepHorizontal) == 10, "");
static_assert(offsetof(MosaicParameters, reserved11) == 11, "");
static_assert(offsetof(MosaicParameters, tilesAcross) == 12, "");
static_assert(offsetof(MosaicParameters, tilesDown) == 16, "");
static_assert(offsetof(MosaicParameters, tileSpacingHorizontal) == 20, "");
static_assert(offsetof(MosaicParameters, tileSpacingVertical) == 24, "");
static_assert(offsetof(MosaicParameters, reserved28) == 28, "");
static_assert(offsetof(MosaicParameters, reserved32) == 32, "");
static_assert(offsetof(MosaicParameters, tilesAcrossCopy) == 36, "");
static_assert(offsetof(MosaicParameters, tilesDownCopy) == 40, "");
static_assert(offsetof(MosaicParameters, boundsLeft) == 44, "");
static_assert(offsetof(MosaicParameters, boundsTop) == 48, "");
static_assert(offsetof(MosaicParameters, boundsRight) == 52, "");
static_assert(offsetof(MosaicParameters, boundsBottom) == 56, "");
static_assert(offsetof(MosaicParameters, reserved60) == 60, "");
static_assert(offsetof(MosaicParameters, reserved64) == 64, "");
static_assert(offsetof(MosaicParameters, newWidth) == 68, "");
static_assert(offsetof(MosaicParameters, newHeight) == 72, "");
static_assert(offsetof(MosaicParameters, sizeUnavailable) == 76, "");
static_assert(offsetof(MosaicParameters, reserved77) == 77, "");

/// Owned by the caller, who passes it back to the next dialog. Zero-initialise it at first.
struct MosaicDialogState {
  float aspectRatio;       // out: source width / (low 16 bits of the height, signed);
                           // 1 if the size is unknown or that height is 0
  uint8_t noOriginalSize;  // out: the record's sizeUnavailable
  uint8_t usePercent;      // in, out: percent mode; comes back 0 or 1
  uint8_t reserved6;       // out: 0
  uint8_t reserved7;       // passes through
};

static_assert(sizeof(MosaicDialogState) == 8, "");
static_assert(offsetof(MosaicDialogState, aspectRatio) == 0, "");
static_assert(offsetof(MosaicDialogState, noOriginalSize) == 4, "");
static_assert(offsetof(MosaicDialogState, usePercent) == 5, "");
static_assert(offsetof(MosaicDialogState, reserved6) == 6, "");
static_assert(offsetof(MosaicDialogState, reserved7) == 7, "");

/// The suite's function table.
struct MosaicSuite {
  static constexpr const char* kName = "VX TesseraeUI Suite";
  static constexpr int32_t kVersion = 1001;

  /// Shows the modal dialog "Create Tesserae" for `**params` and `*state` and returns when it has
  /// closed. Call it on the host's main thread, between Acquire and Release of the suite. The
  /// caller owns record, state and the pointer to the record; the module keeps no pointer to them.
  /// Returns kSuccess after OK, with record and state written; kCancelled if the dialog was closed
  /// any other way; kCannot if the dialog could not be built or run, an argument is null or the
  /// plug-in is not running. kCancelled and kCannot leave record and state unchanged, with one
  /// exception: kCannot after OK, if destroying the dialog fails. Throws nothing, shows no alert.
  ResultCode (*RunMosaicDialog)(MosaicDialogState* state, MosaicParameters** params);
};

static_assert(sizeof(MosaicSuite) == sizeof(void*), "");
