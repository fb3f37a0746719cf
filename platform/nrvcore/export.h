#pragma once

/// Exports a symbol from a toolkit library. All other symbols are hidden.
#define NRV_EXPORT __attribute__((visibility("default")))
