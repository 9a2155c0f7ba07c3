// SPDX-License-Identifier: MIT
#include "app/QtMessages.h"

#include <cstdio>

namespace planbook {

void writeQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    // Said on every start in a plain container, where it changes nothing.
    if (!text.startsWith("QStandardPaths: XDG_RUNTIME_DIR not set")) {
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
    }
}

}  // namespace planbook
