// SPDX-License-Identifier: MIT
#include "formula/FormulaNotation.h"

#include <algorithm>
#include <vector>

#include "automation/Texts.h"

namespace planview::formula {

namespace {

constexpr char Escape = '\\';
constexpr char CaptionStart = '|';
constexpr char AxisSign = '/';
constexpr char RangeSign = ':';

std::string Escaped(std::string_view caption) {
    std::string text;
    for (const char c : caption) {
        if (c == CaptionStart || c == '}' || c == Escape) {
            text += Escape;
        }
        text += c;
    }
    return text;
}

/// The keys and the captions between the braces. The length with these, 0 where they are not closed.
std::size_t ReadParts(std::string_view text, std::vector<std::string>& parts) {
    parts.assign(1, {});
    for (std::size_t i = 1; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '}') {
            return i + 1;
        }
        if (c == CaptionStart) {
            parts.emplace_back();
        } else if (c != Escape) {
            parts.back() += c;
        } else if (++i < text.size()) {
            parts.back() += text[i];
        }
    }
    return 0;
}

bool IsKey(std::string_view text) {
    return !text.empty() && std::none_of(text.begin(), text.end(), [](char c) {
        return static_cast<unsigned char>(c) <= ' ' || std::string_view("{}|\\").find(c) != std::string_view::npos;
    });
}

/// "ROW3" or "ROW3:ROW7". False where an end is missing.
bool ReadEnds(std::string_view text, FormulaPlace& first, FormulaPlace& last, std::vector<FormulaPlace*>& keys) {
    const std::vector<std::string_view> ends = SplitAt(text, RangeSign);
    if (ends.size() > 2 || !IsKey(ends.front()) || !IsKey(ends.back())) {
        return false;
    }
    first.key = ends.front();
    last.key = ends.back();
    keys.push_back(&first);
    if (ends.size() == 2) {
        keys.push_back(&last);
    }
    return true;
}

void WriteEnds(const FormulaPlace& first, const FormulaPlace& last, std::string& keys, std::string& captions) {
    keys += first.key;
    captions += CaptionStart + Escaped(first.caption);
    if (first.key != last.key) {
        keys += RangeSign + last.key;
        captions += CaptionStart + Escaped(last.caption);
    }
}

}  // namespace

std::string Quoted(std::string_view name) {
    std::string text = "\"";
    for (const char c : name) {
        text += c;
        if (c == '"') {
            text += c;
        }
    }
    return text + "\"";
}

std::size_t ReadQuoted(std::string_view text, std::string& name) {
    name.clear();
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] != '"') {
            name += text[i];
        } else if (i + 1 < text.size() && text[i + 1] == '"') {
            name += text[i++];
        } else {
            return i + 1;
        }
    }
    return 0;
}

std::string WriteReference(const FormulaReference& reference) {
    std::string keys = "{";
    std::string captions;
    if (!reference.firstLine.key.empty()) {
        WriteEnds(reference.firstLine, reference.lastLine, keys, captions);
    }
    if (!reference.firstPeriod.key.empty()) {
        keys += AxisSign;
        WriteEnds(reference.firstPeriod, reference.lastPeriod, keys, captions);
    }
    return keys + captions + "}";
}

std::size_t ReadReference(std::string_view text, FormulaReference& reference) {
    std::vector<std::string> parts;
    const std::size_t length = ReadParts(text, parts);
    const std::vector<std::string_view> axes = SplitAt(parts.front(), AxisSign);
    std::vector<FormulaPlace*> keys;
    const bool hasLines = !axes.front().empty();
    if (length == 0 || axes.size() > 2 || (!hasLines && axes.size() == 1) ||
        (hasLines && !ReadEnds(axes.front(), reference.firstLine, reference.lastLine, keys)) ||
        (axes.size() == 2 && !ReadEnds(axes.back(), reference.firstPeriod, reference.lastPeriod, keys))) {
        return 0;
    }
    if (parts.size() > 1 && parts.size() != keys.size() + 1) {
        return 0;
    }
    for (std::size_t i = 1; i < parts.size(); ++i) {
        keys[i - 1]->caption = parts[i];
    }
    const auto alike = [](const FormulaPlace& first, FormulaPlace& last) {
        if (first.key == last.key) {
            last = first;
        }
    };
    alike(reference.firstLine, reference.lastLine);
    alike(reference.firstPeriod, reference.lastPeriod);
    return length;
}

}  // namespace planview::formula
