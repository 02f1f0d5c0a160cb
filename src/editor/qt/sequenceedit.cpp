// A sequence as lines.
#include "editor/qt/sequenceedit.h"

#include "editor/text.h"
#include "widgets/look.h"

#include <QFontDatabase>

namespace orrery {

SequenceEdit::SequenceEdit(QWidget *parent) : QPlainTextEdit(parent) {
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTabChangesFocus(true);
}

void SequenceEdit::setSequence(std::string_view stored) {
    setPlainText(ToQString(SequenceLines(stored)));
}

std::string SequenceEdit::sequence() const {
    return SequenceFromLines(FromQString(toPlainText()));
}

} // namespace orrery
