#pragma once

/// Marks what a toolkit library lets its users bind to. Everything else stays hidden.
#define NRV_EXPORT __attribute__((visibility("default")))
