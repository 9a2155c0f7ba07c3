// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/Questions.h"

namespace planbook {

/// Answers in the user's place and keeps what was said.
class ScriptedQuestions final : public Questions {
public:
    void tellFailure(const QString& text) override { failures.push_back(text.toStdString()); }
    void tell(const QString& text) override { news.push_back(text.toStdString()); }
    [[nodiscard]] bool mayRevert(int changes) override {
        revertAsked = changes;
        return revert;
    }
    [[nodiscard]] Keep whoseValues(const std::vector<DisputedCell>& cells) override {
        disputes.push_back(cells);
        if (whileAsking) {
            whileAsking();
        }
        return keep;
    }

    [[nodiscard]] int chooseLine(const QString& text, const QStringList& lines) override {
        asked = text.toStdString() + ": " + lines.join(", ").toStdString();
        return chosenLine;
    }
    [[nodiscard]] std::optional<double> askNumber(const QString& text, double present,
                                                  const std::string& numberCode) override {
        askedCode = numberCode;
        asked = text.toStdString() + ": " + std::to_string(present);
        return number;
    }

    [[nodiscard]] std::optional<double> askPercent(const QString& text) override {
        asked = text.toStdString();
        return number;
    }
    [[nodiscard]] std::optional<QString> askName(const QString& text, const QString& suggested) override {
        asked = text.toStdString() + ": " + suggested.toStdString();
        if (names.empty()) {
            return std::nullopt;
        }
        const std::string name = names.front();
        names.erase(names.begin());
        return name.empty() ? suggested : QString::fromStdString(name);
    }

    [[nodiscard]] OfRecording whatOfRecording(int steps) override {
        leaveAsked = steps;
        return ofRecording;
    }
    [[nodiscard]] bool mayDiscardRecording(int steps) override {
        discardAsked = steps;
        return true;
    }

    [[nodiscard]] OfRecording whatOfTrace() override {
        ++traceAsked;
        return ofTrace;
    }
    [[nodiscard]] std::optional<QString> chooseTraceFile(const QString& suggested) override {
        asked = suggested.toStdString();
        return traceFile.empty() ? std::nullopt : std::optional(QString::fromStdString(traceFile));
    }

    OfRecording ofTrace = OfRecording::GoOn;
    int traceAsked = 0;
    std::string traceFile;
    OfRecording ofRecording = OfRecording::GoOn;
    int leaveAsked = 0;
    int discardAsked = 0;
    int chosenLine = 0;
    std::vector<std::string> names;  ///< to answer one after another; an empty one takes what is suggested
    std::optional<double> number;
    std::string asked;
    std::string askedCode;
    std::function<void()> whileAsking;
    bool revert = true;
    Keep keep = Keep::Mine;
    int revertAsked = 0;
    std::vector<std::string> failures;
    std::vector<std::string> news;
    std::vector<std::vector<DisputedCell>> disputes;
};

}  // namespace planbook
