#include "qt/window_test.h"
