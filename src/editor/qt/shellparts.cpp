// The editor's message boxes and the placing of its forms.
#include "editor/qt/shellparts.h"

#include "editor/words.h"
#include "foundation/text.h"
#include "widgets/look.h"

#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
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

std::optional<PictureImport> ImportChosenPicture(QWidget *parent, const AppPaths &paths,
                                                 const QString &file) {
    const std::filesystem::path source(QFile::encodeName(file).toStdString());
    PictureImport import = ImportPicture(paths, source);
    if (!import.ask) return import;
    QMessageBox box(QMessageBox::Question, ToQString(words::kReplacePicture.title),
                    ToQString(words::kReplacePicture.text), QMessageBox::Cancel, parent);
    box.setInformativeText(QFileInfo(file).fileName());
    QPushButton *replace = box.addButton(QObject::tr("Replace"), QMessageBox::DestructiveRole);
    QPushButton *both = box.addButton(QObject::tr("Keep Both"), QMessageBox::AcceptRole);
    box.setDefaultButton(both);
    box.exec();
    if (box.clickedButton() != replace && box.clickedButton() != both) return std::nullopt;
    return ImportPicture(paths, source,
                         box.clickedButton() == replace ? SameNamePicture::Replace
                                                        : SameNamePicture::KeepBoth);
}

} // namespace orrery
