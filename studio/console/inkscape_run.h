#pragma once

#include "studio/console/console_run.h"

/// One run of the program as an extension of Inkscape: asks for a mosaic of each selected picture
/// and writes the new document to the standard output. Cancel writes nothing, which leaves
/// Inkscape's document as it is, without a step to undo. Inkscape shows what is wrong in a box,
/// from the error output, so it is a sentence without the program's name.
///
/// Returns the exit status, 0 unless something is wrong.
int RunForInkscape(CommandLine line, const ConsoleRun::WindowCamera& windowCamera);
