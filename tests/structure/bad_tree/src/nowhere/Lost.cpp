#include <string>  // BAD: a folder without a layer
