#pragma once
#include <string>
#include <unistd.h>  // BAD: the operating system outside platform
#include <string.h>  // BAD: a C header
  #  include <QtCore/QString>  // BAD: Qt in the core, unusual spelling
