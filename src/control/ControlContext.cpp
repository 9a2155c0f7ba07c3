#include "control/ControlContext.h"

#include "trace/ErrorTrap.h"

namespace planview {

ControlContext::ControlContext(const Platform& desktop)
    : platform(desktop),
      events([](std::string_view event, std::string_view error) { TraceError("USERCONTROL", event, error); }),
      construction({grid, tables, keys}, settings) {}

}  // namespace planview
