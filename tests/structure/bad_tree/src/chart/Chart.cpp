#include CHART_HEADER  // BAD: hidden behind a macro
#include "chart/../layout/Layout.h"  // BAD: a sibling by a detour
