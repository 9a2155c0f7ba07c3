#pragma once
#include <string>  // BAD: a public header without a layer
