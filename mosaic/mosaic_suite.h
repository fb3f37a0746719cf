#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/suites/result_code.h"

/// Everything that a caller of the mosaic dialog needs: acquire MosaicSuite::kName at
/// MosaicSuite::kVersion from the host, fill a MosaicParameters, call RunMosaicDialog, and on
/// success build the mosaic from what came back. Lengths are in points of 1/72 inch.

/// The caller's record. The dialog works on a copy; all 80 bytes come back on OK and only on OK,
/// so the bytes that the dialog does not write return as they went in; spacings and new size are
/// not read.
///
/// Flags: any value but 0 counts as 1; a flag that the person has not touched returns with the
/// value that it had.
/// Counts, spacings, new size: what a person enters is pulled into the range given below, and of a
/// count or spacing the whole part comes back. A number that nobody entered comes back without a
/// bound, between -32768 and 32767: a count or size that the caller gave, or that the ratio button
/// derived.
/// Spacings: at most the tile count less two, but at least 0, limited when the dialog opens and
/// whenever the person changes a count; the ratio button changes a count without limiting its
/// spacing.
/// New size: in points, or in percent mode a hundredth of the percentage.
struct MosaicParameters {
  uint8_t reserved0[8];           // passes through
  uint8_t isColor;                // in, out: colour tiles, otherwise grey ones
  uint8_t deleteRaster;           // in, out: the raster goes when the mosaic stands
  uint8_t keepHorizontal;         // in, out: the ratio button derives the vertical values
  uint8_t reserved11;             // passes through
  int32_t tilesAcross;            // in (its low 16 bits), out: when entered 1 to 8640
  int32_t tilesDown;              // in (its low 16 bits), out: when entered 1 to 8640
  int32_t tileSpacingHorizontal;  // out: whole points, at least 0
  int32_t tileSpacingVertical;    // out: whole points, at least 0
  int32_t reserved28;             // out: 0
  int32_t reserved32;             // out: 0
  int32_t tilesAcrossCopy;        // out: the same as tilesAcross
  int32_t tilesDownCopy;          // out: the same as tilesDown
  int32_t boundsLeft;             // in: bounds of the source picture; beyond 32767 in width
                                  // or height the size that the dialog shows wraps to 16 bits
  int32_t boundsTop;              // in
  int32_t boundsRight;            // in
  int32_t boundsBottom;           // in
  int32_t reserved60;             // out: 0
  int32_t reserved64;             // out: 0
  float newWidth;                 // out: when entered 0 to 8640 points, in percent mode 0 to 1
  float newHeight;                // out: the same rule
  uint8_t sizeUnavailable;        // in: the source's size is not known, only percentages make sense
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

/// The caller keeps this value from one showing of the dialog to the next; start with all zero.
struct MosaicDialogState {
  float aspectRatio;       // source width by the height's low 16 bits, which have a sign;
                           // 1 when the size is unknown or that height is 0
  uint8_t noOriginalSize;  // the record's sizeUnavailable, as the dialog took it
  uint8_t usePercent;      // the new size was given in percent; the next dialog opens so
  uint8_t reserved6;       // comes back 0
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

  /// Shows the dialog "Create Tesserae" over `**params` and `*state` and returns when it is
  /// closed. To be called on the host's main thread, between Acquire and Release of the suite.
  /// Record, state and the pointer to the record are the caller's throughout; the pointer is not
  /// changed, and nothing is kept. Answers kSuccess after OK, with both rewritten whole; kCancelled
  /// when the dialog was closed any other way and kCannot when it could not be shown or run, when
  /// an argument is null or the plug-in does not run, with nothing written. Only if the dialog
  /// cannot be destroyed after OK does kCannot come with both written. No exception leaves it, and
  /// the user is shown no alert.
  ResultCode (*RunMosaicDialog)(MosaicDialogState* state, MosaicParameters** params);
};

static_assert(sizeof(MosaicSuite) == sizeof(void*), "");
