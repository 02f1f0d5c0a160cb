// The desk's finishing touch on an element's control; the properties themselves are applied
// by the element property table.
#pragma once

#include "desk/desk.h"
#include "project/elementprops.h"

namespace orrery {

// A label with back style 1 gets a leading blank when aligned left, a trailing one when
// aligned right.
void PadLabelCaption(ElementControl &control);

} // namespace orrery
