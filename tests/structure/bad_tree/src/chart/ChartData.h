#pragma once
#include <boost/any.hpp>      // BAD: a library that the project does not have
#include <planview/PlanView.h>  // BAD: upwards
#include "grid/modGrid.h"
#include "layout/PaneLayout.h"  // BAD: no such file
