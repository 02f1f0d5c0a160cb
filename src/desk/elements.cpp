// The padding of a label's caption.
#include "desk/elements.h"

namespace orrery {

void PadLabelCaption(ElementControl &control) {
    if (control.kind != ElementKind::Label || control.backStyle != 1) return;
    if (control.alignment == 0)
        control.caption.insert(0, " ");
    else if (control.alignment == 1)
        control.caption += " ";
}

} // namespace orrery
