// The editor's message boxes and the placing of its forms.
#include "editor/qt/shellparts.h"

#include "foundation/text.h"
#include "widgets/look.h"

#include <QMessageBox>
#include <algorithm>

namespace orrery {

void ShowMessage(QWidget *parent, const Message &message) {
    QMessageBox box(QMessageBox::NoIcon, ToQString(message.title),
                    ToQString(ReplaceAll(message.text, "\r\n", "\n")), QMessageBox::Ok, parent);
    box.exec();
}

bool Ask(QWidget *parent, const Question &question) {
    QMessageBox box(QMessageBox::Question, ToQString(question.title), ToQString(question.text),
                    QMessageBox::Yes | QMessageBox::No, parent);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

QPoint CenterChild(QSize frame, QSize form) {
    const int left = frame.width() / 2 - form.width() / 2;
    const int top = frame.height() / 2 - form.height() / 2 - Px(1200);
    return {std::max(0, left), std::max(0, top)};
}

} // namespace orrery
