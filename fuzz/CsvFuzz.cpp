// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "book/BookError.h"
#include "import/BookBuilder.h"
#include "import/CsvNumbers.h"
#include "import/NamesFile.h"
#include "import/SourceTable.h"

namespace {

using namespace planbook;

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// What is wrong can always be told, and telling it is all that happens.
bool Refused(const Faults& faults) {
    try {
        faults.Throw("fuzzed.csv");
    } catch (const BookError&) {
        return true;
    }
    return false;
}

void Import(std::string_view text, std::string_view namesText, DecimalMark mark) {
    Faults faults;
    const SourceTable source = ReadSourceTable(text, mark, faults);
    if (Refused(faults)) {
        return;
    }
    for (const SourceLine& line : source.lines) {
        Require(line.values.size() == source.periods.size());
        for (const std::optional<double>& value : line.values) {
            Require(!value || (std::isfinite(*value) && ReadNumber(GridNumber(*value), DecimalMark::Comma)));
        }
    }
    Faults namesFaults;
    const NamesFile names = ReadNamesFile(namesText, namesFaults);
    CheckNamesAgainst(source, names, namesFaults);
    static_cast<void>(BuildBook(source, Refused(namesFaults) ? NamesFile() : names));
}

}  // namespace

/// A table of numbers and, behind a form feed, its names file: both are imported or refused, by each decimal mark.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t end = input.find('\f');
    const std::string_view text = input.substr(0, end);
    const std::string_view names = end == input.npos ? std::string_view() : input.substr(end + 1);
    for (const DecimalMark mark : {DecimalMark::Automatic, DecimalMark::Point, DecimalMark::Comma}) {
        Import(text, names, mark);
    }
    return 0;
}
