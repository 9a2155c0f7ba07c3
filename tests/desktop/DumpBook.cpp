// SPDX-License-Identifier: MIT
// planbook_dump BOOK: writes the tables of a book to standard output, a line for each row.
#include <QCoreApplication>
#include <cstdio>
#include <exception>

#include "planbook/TestBook.h"

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);  // the SQL driver is a plug-in
    try {
        std::fputs(DumpFile(argv[1]).c_str(), stdout);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
