#pragma once
#include <planview/Variant.h>
#include <planview/Missing.h>  // BAD: no such public header
#include "automation/Numbers.h"
#include "components/GridControl.h"
#include "chart/ChartData.h"  // BAD: upwards
