// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

namespace planbook {

/// Writes a message of Qt's own to standard error. A handler for qInstallMessageHandler().
void writeQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& text);

}  // namespace planbook
