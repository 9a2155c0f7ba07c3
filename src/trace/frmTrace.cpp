#include "trace/frmTrace.h"

#include <memory>

namespace planview {

namespace {

std::unique_ptr<frmTrace> instance;

}  // namespace

frmTrace::frmTrace() {
    TraceView.AddColumn({"CONTROL", "Control", 1500});
    TraceView.AddColumn({"MESSAGE", "Message", 1500});
    TraceView.AddColumn({"METHODE", "Methode/Event", 2100});
    TraceView.AddColumn({"PARAMETER", "Parameter", 4500});
    TraceView.AddColumn({"GUID", "GUID", 2100});
}

frmTrace& frmTrace::Instance() {
    if (!instance) {
        instance.reset(new frmTrace);
    }
    return *instance;
}

bool frmTrace::Exists() noexcept {
    return instance != nullptr;
}

void frmTrace::End() noexcept {
    instance.reset();
}

}  // namespace planview
