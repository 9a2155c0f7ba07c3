#pragma once
// A small tree with every kind of include that the layers forbid. It is only read, never compiled. Each such line ends
// with the word BAD in a comment; the ones without must pass.

#include <QString>  // BAD: Qt in the core
#include <string>

#include <planview/PlanView.h>  // BAD: upwards
#include <planview/Version.h>

#include "automation/Numbers.h"  // BAD: private from public
