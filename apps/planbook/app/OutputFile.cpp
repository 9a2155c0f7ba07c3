// SPDX-License-Identifier: MIT
#include "app/OutputFile.h"

#include <cerrno>

#include <planview/AutomationObject.h>
#include <planview/SaveBeside.h>
#include <planview/Trace.h>

#include "book/BookError.h"
#include "book/BookStore.h"

namespace planbook {

std::string OutputRefusal(const std::filesystem::path& file) {
    return IsBookFile(file)
               ? "Cannot write \"" + file.string() + "\": there is a planning book of that name. Choose another one."
               : std::string();
}

void CheckOutput(const std::filesystem::path& file) {
    if (const std::string refusal = OutputRefusal(file); !refusal.empty()) {
        throw BookError(refusal);
    }
}

void WriteOutput(const std::filesystem::path& file, const std::function<void(std::ostream&)>& write) {
    CheckOutput(file);
    try {
        planview::SaveStream(file, write);
    } catch (const planview::AutomationError& error) {
        throw BookError(error.what());
    }
}

void WriteTraceOf(const std::filesystem::path& file, const std::function<void()>& body) {
    WriteOutput(file, [&](std::ostream& out) {
        const planview::TraceStream stream(out);
        body();
        CheckOutput(file);       // the user may have made a book of that name meanwhile
        errno = stream.Error();  // of the write that failed, not of what was done since
    });
}

void WriteTrace(const std::filesystem::path& file) {
    WriteOutput(file, [](std::ostream& out) { planview::WriteTraceLog(out); });
}

}  // namespace planbook
