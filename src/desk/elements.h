// Element properties applied to live controls: one function for loading a tool and for
// putting an element back to its designed state.
#pragma once

#include "desk/desk.h"

#include <string_view>

namespace orrery {

// Applies one "key:value" property cell to a control. Unknown keys and properties the kind
// doesn't have are passed over. A list's items and a console's commands are taken only when
// the control is made, so a reset leaves them.
void ApplyProperty(ElementControl &control, std::string_view key, std::string_view value,
                   bool making);
// Applies every property cell of an element's row, columns 2 to 21 but the action.
void ApplyProperties(ElementControl &control, const ElementRow &row, bool making);
// A label with back style 1 gets a leading blank when aligned left, a trailing one when
// aligned right.
void PadLabelCaption(ElementControl &control);

} // namespace orrery
