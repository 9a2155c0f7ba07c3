// SPDX-License-Identifier: MIT
#include "spreadsheet/CaptionMatch.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string_view>

namespace planview {

namespace {

using Captions = std::vector<std::string>;

/// Where one caption stands.
struct Places {
    std::vector<int> inTable;
    std::vector<int> onSheet;
};

using Index = std::map<std::string_view, Places>;

/// The places from..to of both sides, the ends not included.
struct Segment {
    int tableFrom;
    int tableTo;
    int sheetFrom;
    int sheetTo;
};

class Matcher {
public:
    Matcher(const Captions& table, const Captions& sheet, const TellApart& tellApart)
        : table_(table), sheet_(sheet), tellApart_(tellApart), sheetTaken_(sheet.size(), false) {
        match_.sheetPlaces.assign(table.size(), CaptionMatch::None);
    }

    CaptionMatch Match() {
        const bool sameCounts = EveryCountAgrees();
        MatchUnique();
        MatchToldApart();
        if (sameCounts && InOrder()) {
            ForEachSegment([this](const Segment& segment) { MatchRepeated(segment); });
            std::sort(match_.byOrder.begin(), match_.byOrder.end());
        }
        Sort();
        Judge();
        return std::move(match_);
    }

private:
    static std::size_t At(int place) noexcept { return static_cast<std::size_t>(place); }

    void Pair(int inTable, int onSheet) {
        match_.sheetPlaces[At(inTable)] = onSheet;
        sheetTaken_[At(onSheet)] = true;
    }

    [[nodiscard]] Index IndexOf(const Segment& segment) const {
        Index index;
        for (int i = segment.tableFrom; i < segment.tableTo; ++i) {
            if (match_.sheetPlaces[At(i)] == CaptionMatch::None) {
                index[table_[At(i)]].inTable.push_back(i);
            }
        }
        for (int i = segment.sheetFrom; i < segment.sheetTo; ++i) {
            if (!sheetTaken_[At(i)]) {
                index[sheet_[At(i)]].onSheet.push_back(i);
            }
        }
        return index;
    }

    [[nodiscard]] Segment Everything() const {
        return {0, static_cast<int>(table_.size()), 0, static_cast<int>(sheet_.size())};
    }

    [[nodiscard]] bool EveryCountAgrees() const {
        const Index index = IndexOf(Everything());
        return std::all_of(index.begin(), index.end(), [](const auto& entry) {
            return entry.second.inTable.size() == entry.second.onSheet.size();
        });
    }

    void MatchToldApart() {
        if (!tellApart_) {
            return;
        }
        for (const auto& [caption, places] : IndexOf(Everything())) {
            if (!places.inTable.empty() && places.inTable.size() == places.onSheet.size()) {
                for (const auto& [inTable, onSheet] : tellApart_(places.inTable, places.onSheet)) {
                    Pair(inTable, onSheet);
                }
            }
        }
    }

    void MatchUnique() {
        for (const auto& [caption, places] : IndexOf(Everything())) {
            if (places.inTable.size() == 1 && places.onSheet.size() == 1) {
                Pair(places.inTable.front(), places.onSheet.front());
            }
        }
    }

    [[nodiscard]] bool InOrder() const {
        int last = CaptionMatch::None;
        for (const int place : match_.sheetPlaces) {
            if (place != CaptionMatch::None) {
                if (place < last) {
                    return false;
                }
                last = place;
            }
        }
        return true;
    }

    /// Calls use(segment) for what lies between two matched captions that follow one another. They are in order.
    template <class Use>
    void ForEachSegment(const Use& use) {
        const std::vector<int> matched = match_.sheetPlaces;
        Segment segment{0, 0, 0, 0};
        for (std::size_t i = 0; i < matched.size(); ++i) {
            if (matched[i] != CaptionMatch::None) {
                segment.tableTo = static_cast<int>(i);
                segment.sheetTo = matched[i];
                use(segment);
                segment.tableFrom = segment.tableTo + 1;
                segment.sheetFrom = segment.sheetTo + 1;
            }
        }
        segment.tableTo = static_cast<int>(table_.size());
        segment.sheetTo = static_cast<int>(sheet_.size());
        use(segment);
    }

    void MatchRepeated(const Segment& segment) {
        for (const auto& [caption, places] : IndexOf(segment)) {
            if (places.inTable.size() == places.onSheet.size()) {
                for (std::size_t i = 0; i < places.inTable.size(); ++i) {
                    Pair(places.inTable[i], places.onSheet[i]);
                    match_.byOrder.push_back(places.inTable[i]);
                }
            }
        }
    }

    /// Says of everything unmatched what it is.
    void Sort() {
        const Index index = IndexOf(Everything());
        std::vector<bool> ofTable(sheet_.size(), false);
        for (const auto& [caption, places] : index) {
            for (const int place : places.onSheet) {
                ofTable[At(place)] = !places.inTable.empty();
            }
        }
        std::vector<bool> renamedInTable(table_.size(), false);
        std::vector<bool> renamedOnSheet(sheet_.size(), false);
        if (InOrder()) {
            ForEachSegment([&](const Segment& segment) {
                const int length = segment.tableTo - segment.tableFrom;
                for (int i = 0; length == segment.sheetTo - segment.sheetFrom && i < length; ++i) {
                    const int inTable = segment.tableFrom + i;
                    const int onSheet = segment.sheetFrom + i;
                    const auto found = index.find(table_[At(inTable)]);
                    const bool known = found != index.end() && !found->second.onSheet.empty();
                    if (!known && !ofTable[At(onSheet)] && !sheet_[At(onSheet)].empty()) {
                        match_.renamed.emplace_back(inTable, onSheet);
                        renamedInTable[At(inTable)] = renamedOnSheet[At(onSheet)] = true;
                    }
                }
            });
        }
        for (const auto& [caption, places] : index) {
            for (const int place : places.inTable) {
                if (!renamedInTable[At(place)]) {
                    (places.onSheet.empty() ? match_.missing : match_.ambiguous).push_back(place);
                }
            }
            for (const int place : places.onSheet) {
                if (places.inTable.empty() && !renamedOnSheet[At(place)] && !caption.empty()) {
                    match_.extra.push_back(place);
                }
            }
        }
        std::sort(match_.missing.begin(), match_.missing.end());
        std::sort(match_.ambiguous.begin(), match_.ambiguous.end());
        std::sort(match_.extra.begin(), match_.extra.end());
    }

    void Judge() {
        const auto isCaption = [](const std::string& text) { return !text.empty(); };
        const auto onSheet = std::count_if(sheet_.begin(), sheet_.end(), isCaption);
        std::ptrdiff_t known = static_cast<std::ptrdiff_t>(match_.ambiguous.size());
        for (std::size_t i = 0; i < table_.size(); ++i) {
            known += match_.sheetPlaces[i] != CaptionMatch::None && isCaption(table_[i]) ? 1 : 0;
        }
        match_.ofOtherTable = known == 0 || known * 2 < onSheet;
    }

    const Captions& table_;
    const Captions& sheet_;
    const TellApart& tellApart_;
    std::vector<bool> sheetTaken_;
    CaptionMatch match_;
};

}  // namespace

std::string TrimmedCaption(const std::string& caption) {
    constexpr std::string_view NoBreakSpace = "\xC2\xA0";
    const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    std::string_view rest = caption;
    for (;;) {
        if (!rest.empty() && isBlank(rest.front())) {
            rest.remove_prefix(1);
        } else if (!rest.empty() && isBlank(rest.back())) {
            rest.remove_suffix(1);
        } else if (rest.starts_with(NoBreakSpace)) {
            rest.remove_prefix(NoBreakSpace.size());
        } else if (rest.ends_with(NoBreakSpace)) {
            rest.remove_suffix(NoBreakSpace.size());
        } else {
            return std::string(rest);
        }
    }
}

CaptionMatch MatchCaptions(std::vector<std::string> table, std::vector<std::string> sheet, const TellApart& tellApart) {
    std::transform(table.begin(), table.end(), table.begin(), TrimmedCaption);
    std::transform(sheet.begin(), sheet.end(), sheet.begin(), TrimmedCaption);
    while (sheet.size() > table.size() && sheet.back().empty()) {
        sheet.pop_back();
    }
    return Matcher(table, sheet, tellApart).Match();
}

}  // namespace planview
