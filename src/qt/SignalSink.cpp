// SPDX-License-Identifier: MIT
#include "qt/SignalSink.h"

#include "qt/VariantConversion.h"

namespace planview {

namespace {

QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

}  // namespace

void SignalSink::GridValueChanged(std::int16_t Column, const std::string& ColPos, std::int16_t Row,
                                  const std::string& RowPos, const Variant& strValue) {
    Q_EMIT widget_.GridValueChanged(Column, toQt(ColPos), Row, toQt(RowPos), toQVariant(strValue));
}

void SignalSink::GridCellDblClick(std::int16_t Column, const std::string& ColPos, std::int16_t Row,
                                  const std::string& RowPos, const std::string& Switch) {
    Q_EMIT widget_.GridCellDblClick(Column, toQt(ColPos), Row, toQt(RowPos), toQt(Switch));
}

void SignalSink::GridCellMouseDown(std::int16_t MouseButton, std::int16_t Column, const std::string& ColPos,
                                   std::int16_t Row, const std::string& RowPos, const std::string& Switch) {
    Q_EMIT widget_.GridCellMouseDown(MouseButton, Column, toQt(ColPos), Row, toQt(RowPos), toQt(Switch));
}

void SignalSink::ColumnResized(std::int16_t Column, const std::string& ColPos, std::int32_t vValue,
                               const std::string& Switch) {
    Q_EMIT widget_.ColumnResized(Column, toQt(ColPos), vValue, toQt(Switch));
}

void SignalSink::RowResized(std::int16_t Row, const std::string& RowPos, std::int32_t vValue,
                            const std::string& Switch) {
    Q_EMIT widget_.RowResized(Row, toQt(RowPos), vValue, toQt(Switch));
}

void SignalSink::ChartMouseDown(std::int16_t MouseButton) {
    Q_EMIT widget_.ChartMouseDown(MouseButton);
}

void SignalSink::GridStartUpdate() {
    Q_EMIT widget_.GridStartUpdate();
}

void SignalSink::GridTreeNodeClick(const std::string& NodeKey, const std::string& Switch) {
    Q_EMIT widget_.GridTreeNodeClick(toQt(NodeKey), toQt(Switch));
}

void SignalSink::GridTreeNodeExpand(const std::string& NodeKey, const std::string& Switch) {
    Q_EMIT widget_.GridTreeNodeExpand(toQt(NodeKey), toQt(Switch));
}

void SignalSink::GridTreeMacroClick(const std::string& NodeKey, const std::string& Switch) {
    Q_EMIT widget_.GridTreeMacroClick(toQt(NodeKey), toQt(Switch));
}

void SignalSink::GridTreeMacroExpand(const std::string& NodeKey, const std::string& Switch) {
    Q_EMIT widget_.GridTreeMacroExpand(toQt(NodeKey), toQt(Switch));
}

void SignalSink::MacroTreeMouseDown(const std::string& NodeKey, const std::string& Switch) {
    Q_EMIT widget_.MacroTreeMouseDown(toQt(NodeKey), toQt(Switch));
}

void SignalSink::GridTreeMacroCollapse(const std::string& NodeKey, const std::string& Switch) {
    Q_EMIT widget_.GridTreeMacroCollapse(toQt(NodeKey), toQt(Switch));
}

void SignalSink::GridPopupMenuPressed(std::int16_t Popup, const std::string& UComm, std::int16_t Column,
                                      const std::string& ColPos, std::int16_t Row, const std::string& RowPos) {
    Q_EMIT widget_.GridPopupMenuPressed(Popup, toQt(UComm), Column, toQt(ColPos), Row, toQt(RowPos));
}

void SignalSink::GridReturnKeyPressed() {
    Q_EMIT widget_.GridReturnKeyPressed();
}

void SignalSink::MacroTreeNodeDropped(const std::string& NodeRefKey, const std::string& NodeType, std::int16_t Action) {
    Q_EMIT widget_.MacroTreeNodeDropped(toQt(NodeRefKey), toQt(NodeType), Action);
}

void SignalSink::MacroTreeExpand() {
    Q_EMIT widget_.MacroTreeExpand();
}

void SignalSink::MacroTreeCollapse() {
    Q_EMIT widget_.MacroTreeCollapse();
}

void SignalSink::MacroDragSelection(const std::string& Selection) {
    Q_EMIT widget_.MacroDragSelection(toQt(Selection));
}

void SignalSink::MacroRecordSave() {
    Q_EMIT widget_.MacroRecordSave();
}

}  // namespace planview
