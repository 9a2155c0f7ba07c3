#pragma once
#include <QSqlDatabase>
#include <QtSvg/QSvgRenderer>  // BAD: not a module of planbook's
#include <planview/PlanView.h>
#include <planview/qt/PlanViewWidget.h>
#include "book/Book.h"
#include "grid/modGrid.h"               // BAD: the control's inside
#include "../../../src/grid/modGrid.h"  // BAD: the control's inside by a detour
