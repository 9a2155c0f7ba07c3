// SPDX-License-Identifier: MIT
#pragma once

#include "grid/modGrid.h"
