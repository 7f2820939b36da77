#pragma once

#include <QtCore/qnamespace.h>

namespace vorn::test {

/// Presses and releases a key on the control that has the keyboard, as a user would.
void Type(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// What a held key sends after its press.
void Repeat(Qt::Key key);

} // namespace vorn::test
