// SPDX-License-Identifier: MIT
#pragma once

#include "automation/Numbers.h" // BAD: every file of macro/ is in one of its folders
