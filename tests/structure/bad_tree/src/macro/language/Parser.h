// SPDX-License-Identifier: MIT
#pragma once

#include "automation/Numbers.h"
#include "macro/tree/Nodes.h" // BAD: a folder in a folder is a layer, too
