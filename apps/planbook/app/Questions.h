// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace planbook {

/// A cell with two new values, as the user sees it.
struct DisputedCell {
    QString name;
    QString mine;
    QString theirs;
};

/// What planbook tells and asks the user. A test answers in the user's place.
class Questions {
public:
    enum class Keep { Mine, Theirs };
    /// What becomes of a recording that runs while its book is to be left.
    enum class OfRecording { Keep, Discard, GoOn };

    virtual ~Questions() = default;
    /// Something could not be done; the text says what and what now.
    virtual void tellFailure(const QString& text) = 0;
    virtual void tell(const QString& text) = 0;
    [[nodiscard]] virtual bool mayRevert(int changes) = 0;
    /// Whose values the cells get. Theirs are in the book.
    [[nodiscard]] virtual Keep whoseValues(const std::vector<DisputedCell>& cells) = 0;
    /// The place of one of the lines, from 0; -1 when the user chose none.
    [[nodiscard]] virtual int chooseLine(const QString& text, const QStringList& lines) = 0;
    /// `numberCode` is that of the cells which the number is about: it is read as one typed there.
    [[nodiscard]] virtual std::optional<double> askNumber(const QString& text, double present,
                                                          const std::string& numberCode) = 0;
    /// A percentage; the one asked last comes first the next time.
    [[nodiscard]] virtual std::optional<double> askPercent(const QString& text) = 0;
    [[nodiscard]] virtual std::optional<QString> askName(const QString& text, const QString& suggested) = 0;
    /// GoOn: the book stays, and the recording runs on.
    [[nodiscard]] virtual OfRecording whatOfRecording(int steps) = 0;
    [[nodiscard]] virtual bool mayDiscardRecording(int steps) = 0;
    /// What becomes of a trace that runs while the window is to be closed. GoOn: the window stays.
    [[nodiscard]] virtual OfRecording whatOfTrace() = 0;
    /// The file to write it into; none when the user wants no longer to.
    [[nodiscard]] virtual std::optional<QString> chooseTraceFile(const QString& suggested) = 0;
};

/// Asks in windows.
class QuestionWindows final : public Questions {
public:
    explicit QuestionWindows(QWidget* parent) : parent_(parent) {}

    void tellFailure(const QString& text) override;
    void tell(const QString& text) override;
    [[nodiscard]] bool mayRevert(int changes) override;
    [[nodiscard]] Keep whoseValues(const std::vector<DisputedCell>& cells) override;
    [[nodiscard]] int chooseLine(const QString& text, const QStringList& lines) override;
    [[nodiscard]] std::optional<double> askNumber(const QString& text, double present,
                                                  const std::string& numberCode) override;
    [[nodiscard]] std::optional<double> askPercent(const QString& text) override;
    [[nodiscard]] std::optional<QString> askName(const QString& text, const QString& suggested) override;
    [[nodiscard]] OfRecording whatOfRecording(int steps) override;
    [[nodiscard]] bool mayDiscardRecording(int steps) override;
    [[nodiscard]] OfRecording whatOfTrace() override;
    [[nodiscard]] std::optional<QString> chooseTraceFile(const QString& suggested) override;

private:
    [[nodiscard]] OfRecording askWhatOf(const QString& text, const QString& keepCaption);

    QWidget* parent_;
    double percent_ = 5;
};

/// "1 change", "3 changes".
[[nodiscard]] QString counted(int count, const QString& what);

}  // namespace planbook
