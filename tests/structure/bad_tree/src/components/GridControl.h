#pragma once
#include "automation/Numbers.h"
#include "grid/modGrid.h"  // BAD: upwards
#include "GridControl.h"   // BAD: not by its path from src/
