#pragma once
#include <QWidget>

#include <planview/PlanView.h>
