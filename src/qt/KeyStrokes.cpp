// SPDX-License-Identifier: MIT
#include "qt/KeyStrokes.h"

#include <QKeyEvent>
#include <QKeySequence>

namespace planview {

namespace {

constexpr QKeySequence::StandardKey DesktopKeys[] = {QKeySequence::Cut, QKeySequence::Copy, QKeySequence::Paste,
                                                     QKeySequence::Undo, QKeySequence::Redo};

QKeyCombination usualKey(const QKeyEvent& event) {
    for (const QKeySequence::StandardKey key : DesktopKeys) {
        if (event.matches(key)) {
            return QKeySequence(key)[0];
        }
    }
    return QKeyCombination(event.modifiers() & ~Qt::KeypadModifier, static_cast<Qt::Key>(event.key()));
}

}  // namespace

KeyStroke keyStrokeOf(const QKeyEvent& event) {
    const QKeyCombination pressed = usualKey(event);
    const Qt::KeyboardModifiers held = pressed.keyboardModifiers();
    const Qt::Key key = pressed.key();
    KeyStroke stroke;
    if ((held & ~(Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier)) != Qt::NoModifier) {
        return stroke;
    }
    if (key == Qt::Key_Delete) {
        stroke.code = KeyStroke::Delete;
    } else if (key == Qt::Key_Space || (key >= Qt::Key_A && key <= Qt::Key_Z)) {
        stroke.code = static_cast<std::int16_t>(key);
    } else if (key >= Qt::Key_Left && key <= Qt::Key_Down) {
        stroke.code = static_cast<std::int16_t>(KeyStroke::Left + (key - Qt::Key_Left));
    } else if (key >= Qt::Key_F1 && key <= Qt::Key_F12) {
        stroke.code = static_cast<std::int16_t>(KeyStroke::F1 + (key - Qt::Key_F1));
    }
    const auto add = [&](Qt::KeyboardModifier modifier, std::int16_t shift) {
        stroke.shift = static_cast<std::int16_t>(stroke.shift + (held.testFlag(modifier) ? shift : 0));
    };
    add(Qt::ShiftModifier, KeyStroke::Shift);
    add(Qt::ControlModifier, KeyStroke::Control);
    add(Qt::AltModifier, KeyStroke::Alt);
    return stroke;
}

}  // namespace planview
