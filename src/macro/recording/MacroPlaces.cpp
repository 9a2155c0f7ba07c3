// SPDX-License-Identifier: MIT
#include "macro/recording/MacroPlaces.h"

#include <algorithm>
#include <optional>
#include <span>

namespace planview {

namespace {

constexpr char RangeMark = ':';
constexpr char ListMark = ',';
constexpr char NameMark = '|';

std::vector<std::string> Divide(std::string_view text, char mark) {
    std::vector<std::string> parts;
    while (!text.empty()) {
        const std::size_t end = text.find(mark);
        parts.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            break;
        }
        text.remove_prefix(end + 1);
        if (text.empty()) {
            parts.emplace_back();
        }
    }
    return parts;
}

/// Fit to stand in a list of captions, and always written alike.
std::string Cleaned(std::string text) {
    for (char& c : text) {
        if (c == NameMark || static_cast<unsigned char>(c) < ' ') {
            c = ' ';
        }
    }
    const std::size_t start = text.find_first_not_of(' ');
    return start == std::string::npos ? std::string() : text.substr(start, text.find_last_not_of(' ') - start + 1);
}

/// The columns or rows of a grid behind one face.
class Axis {
public:
    Axis(const GridControl& grid, PlaceAxis axis) : grid_(grid), columns_(axis == PlaceAxis::Columns) {}

    [[nodiscard]] std::optional<int> OrderOf(std::string_view key) const {
        if (columns_) {
            const std::optional<ColumnId> id = grid_.FindColumn(key);
            return id ? std::optional(grid_.OrderOf(*id)) : std::nullopt;
        }
        const std::optional<RowId> id = grid_.FindRow(key);
        return id ? std::optional(grid_.OrderOf(*id)) : std::nullopt;
    }

    /// All keys of the area that this one is in, in their order.
    [[nodiscard]] std::vector<std::string> Neighbours(std::string_view key) const {
        std::vector<std::string> keys;
        if (columns_) {
            const std::optional<ColumnId> id = grid_.FindColumn(key);
            for (const ColumnId each : id ? grid_.Columns(grid_.Column(*id).area) : std::span<const ColumnId>()) {
                keys.push_back(grid_.Column(each).key);
            }
        } else {
            const std::optional<RowId> id = grid_.FindRow(key);
            for (const RowId each : id ? grid_.Rows(grid_.Row(*id).area) : std::span<const RowId>()) {
                keys.push_back(grid_.Row(each).key);
            }
        }
        return keys;
    }

    /// The keys of the planning area that are called so.
    [[nodiscard]] std::vector<std::string> Called(std::string_view caption) const {
        std::vector<std::string> keys;
        const auto take = [&](const std::string& key) {
            if (Caption(key) == caption) {
                keys.push_back(key);
            }
        };
        if (columns_) {
            for (const ColumnId each : grid_.Columns(ColumnArea::Center)) {
                take(grid_.Column(each).key);
            }
        } else {
            for (const RowId each : grid_.Rows(RowArea::Center)) {
                take(grid_.Row(each).key);
            }
        }
        return keys;
    }

    [[nodiscard]] std::string Caption(std::string_view key) const {
        if (!OrderOf(key)) {
            return {};
        }
        const CellKeyView heading = columns_ ? CellKeyView{key, HeadingRowKey} : CellKeyView{LabelColumnKey, key};
        const std::optional<Cell> cell = grid_.FindCell(heading);
        const std::string text = cell ? Cleaned(grid_.Contents(*cell)) : std::string();
        return text.empty() ? std::string(key) : text;
    }

    [[nodiscard]] std::string_view Kind() const noexcept { return columns_ ? "period" : "line"; }

private:
    const GridControl& grid_;
    bool columns_;
};

/// Looks up places of one grid.
class Finder {
public:
    Finder(const GridControl& grid, PlaceAxis axis, const PlaceTexts& places)
        : axis_(grid, axis), names_(Divide(places.names, NameMark)) {
        const auto keyCount = static_cast<std::size_t>(std::count_if(
            places.keys.begin(), places.keys.end(), [](char c) { return c == RangeMark || c == ListMark; }));
        if (names_.size() != keyCount + 1) {
            names_.clear();
        }
    }

    FoundPlaces Find(std::string_view keys) {
        for (const std::string& entry : Divide(keys, ListMark)) {
            const std::vector<std::string> ends = Divide(entry, RangeMark);
            if (ends.empty() || ends.size() > 2) {
                found_.error = "\"" + entry + "\" is no " + std::string(axis_.Kind());
            } else {
                AddRange(ends.front(), ends.back(), ends.size());
            }
            if (!found_.Ok()) {
                found_.keys.clear();
                break;
            }
        }
        return std::move(found_);
    }

private:
    void AddRange(const std::string& from, const std::string& to, std::size_t ends) {
        const std::string first = FindOne(from);
        const std::string last = ends == 1 || !found_.Ok() ? first : FindOne(to);
        if (!found_.Ok()) {
            return;
        }
        const std::vector<std::string> all = axis_.Neighbours(first);
        const auto begin = std::find(all.begin(), all.end(), first);
        const auto end = std::find(begin, all.end(), last);
        if (end == all.end()) {
            found_.error = "the " + std::string(axis_.Kind()) + " \"" + axis_.Caption(last) +
                           "\" does not stand behind \"" + axis_.Caption(first) + "\" any more";
            return;
        }
        found_.keys.insert(found_.keys.end(), begin, end + 1);
    }

    std::string FindOne(const std::string& key) {
        const std::string name = next_ < names_.size() ? names_[next_] : std::string();
        ++next_;
        if (axis_.OrderOf(key) && (name.empty() || axis_.Caption(key) == name)) {
            return key;
        }
        const std::vector<std::string> called = name.empty() ? std::vector<std::string>() : axis_.Called(name);
        if (called.size() == 1) {
            return called.front();
        }
        const std::string what = "the " + std::string(axis_.Kind()) + " \"" + (name.empty() ? key : name) + "\"";
        found_.error = called.empty() ? what + " is not there"
                                      : what + " cannot be told: " + std::to_string(called.size()) + " are called so";
        return {};
    }

    Axis axis_;
    std::vector<std::string> names_;
    std::size_t next_ = 0;
    FoundPlaces found_;
};

}  // namespace

std::string CaptionOf(const GridControl& grid, PlaceAxis axis, std::string_view key) {
    return Axis(grid, axis).Caption(key);
}

PlaceTexts DescribePlaces(const GridControl& grid, PlaceAxis axis, std::vector<std::string> keys) {
    const Axis all(grid, axis);
    std::erase_if(keys, [&](const std::string& key) { return !all.OrderOf(key); });
    std::sort(keys.begin(), keys.end(), [&](const std::string& left, const std::string& right) {
        return *all.OrderOf(left) < *all.OrderOf(right);
    });
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    PlaceTexts texts;
    const auto add = [&](const std::string& key, char mark) {
        if (!texts.keys.empty()) {
            texts.keys += mark;
            texts.names += NameMark;
        }
        texts.keys += key;
        texts.names += all.Caption(key);
    };
    for (std::size_t i = 0; i < keys.size();) {
        // A range does not lead from fixed columns or rows into the planning ones.
        const std::vector<std::string> neighbours = all.Neighbours(keys[i]);
        auto place = std::find(neighbours.begin(), neighbours.end(), keys[i]);
        std::size_t last = i;
        while (last + 1 < keys.size() && ++place != neighbours.end() && *place == keys[last + 1]) {
            ++last;
        }
        add(keys[i], ListMark);
        if (last > i) {
            add(keys[last], RangeMark);
        }
        i = last + 1;
    }
    return texts;
}

FoundPlaces FindPlaces(const GridControl& grid, PlaceAxis axis, const PlaceTexts& places) {
    return Finder(grid, axis, places).Find(places.keys);
}

std::string ReadablePlaces(const PlaceTexts& places) {
    const std::vector<std::string> names = Divide(places.names, NameMark);
    std::string text;
    std::size_t next = 0;
    for (const std::string& entry : Divide(places.keys, ListMark)) {
        std::string_view between = text.empty() ? "" : ", ";
        for (const std::string& key : Divide(entry, RangeMark)) {
            text += between;
            text += next < names.size() && !names[next].empty() ? names[next] : key;
            ++next;
            between = " to ";
        }
    }
    return text;
}

std::string_view SinglePlace(std::string_view keys) {
    return keys.find_first_of(":,") == std::string_view::npos ? keys : std::string_view();
}

}  // namespace planview
