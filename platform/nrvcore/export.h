#pragma once

/// Exports a symbol from a toolkit library; all others are hidden.
#define NRV_EXPORT __attribute__((visibility("default")))
