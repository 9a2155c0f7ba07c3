// SPDX-License-Identifier: MIT
// Names every public member of PlanView::xlsx.

#include <planview/ObjectRegistry.h>
#include <planview/xlsx/SpreadsheetApplication.h>

int main() {
    planview::ObjectRegistry objects;
    planview::xlsx::Register(objects);
    return objects.Create("Excel.Application") && planview::xlsx::MakeApplication() ? 0 : 1;
}
