// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QString>
#include <cstdint>
#include <string>

#include "grid/CellRules.h"

class QKeyEvent;
class QLineEdit;

namespace planview {

class EditLine;
class GridBubble;
class GridView;

/// Edits one cell in its place.
///
/// An entry that the cell does not take stays open with the reason beside it, so that no text is lost; the editor then
/// waits, out of sight if need be, until the text is corrected or abandoned. The editor follows its cell while the grid
/// is scrolled, resized or scaled. Scrolling the cell out of sight or leaving the editor finishes the entry. When the
/// grid is rebuilt the entry is abandoned, because its cell is gone.
///
/// Finishing tells the grid's listener, who may delete the view and the editor with it.
class GridEditor final : public QObject {
    Q_OBJECT

public:
    enum class Start {
        Typed,  ///< the entry replaces the contents; arrow keys finish it
        Edited  ///< the contents are changed; arrow keys move within them
    };

    explicit GridEditor(GridView& view);
    ~GridEditor() override;

    [[nodiscard]] bool isOpen() const { return open_; }
    [[nodiscard]] bool hasFocus() const;
    /// The text line; null until one is needed.
    [[nodiscard]] QLineEdit* line() const;
    /// What is shown beside the cell now; empty when nothing is.
    [[nodiscard]] QString message() const;

    /// False where the cell cannot be edited; the reason is then shown beside it.
    bool open(Cell cell, Start start);
    /// Passes an input event that reached the view on to the entry, and scrolls it into sight.
    void pass(QEvent& event);
    /// Ends the entry; false when its text is refused. True when there is none.
    bool finish();
    /// finish() for a press of the mouse in the grid, which may have ended the entry already by taking its focus. What
    /// an entry says as it ends stays in sight; what was said before goes.
    bool finishForMouse();
    void giveUp();
    /// Shows a sentence beside a cell for a moment; false where the cell is out of sight.
    bool tell(Cell cell, const QString& sentence);
    /// Moves the editor to where its cell is now.
    void follow();
    void hideMessage();
    /// Moves what is shown beside a cell to where that is now; what was said of an earlier grid goes.
    void followMessage();

Q_SIGNALS:
    /// An entry has begun or ended.
    void openChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeLine();
    void place(const QRect& cell);
    void close();
    void say(Refusal refusal, Cell cell);
    void refuse(Refusal refusal);
    void finishOutOfSight();
    [[nodiscard]] std::string entered() const;
    /// Whether the text line is not to see the event.
    [[nodiscard]] bool handleLineEvent(QEvent* event);
    [[nodiscard]] bool handleKey(const QKeyEvent& event);
    [[nodiscard]] bool isForUs(const QKeyEvent& event) const;

    GridView& view_;
    QPointer<EditLine> line_;  // children of the viewport
    QPointer<GridBubble> bubble_;
    Cell told_;  ///< the cell that the message is about
    QRect toldAt_;
    std::uint64_t toldFor_ = 0;
    Cell cell_;
    std::uint64_t builtFor_ = 0;
    std::string before_;
    Start start_ = Start::Typed;
    Refusal refused_ = Refusal::None;  ///< why the entered text was not accepted
    bool open_ = false;
    bool endedByMouse_ = false;  ///< the focus was taken by a press that is still to come
    bool placing_ = false;
};

}  // namespace planview
