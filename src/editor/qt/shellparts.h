// What the editor's windows share: the system's message boxes and the place of a form in the frame.
#pragma once

#include "editor/change.h"
#include "editor/pictures.h"

#include <QString>
#include <optional>

#include <QPoint>
#include <QSize>

class QWidget;

namespace orrery {

// A message box with the core's title and text, answered with OK.
void ShowMessage(QWidget *parent, const Message &message);
// The core's question with Yes and No; true when the author answers Yes.
bool Ask(QWidget *parent, const Question &question);
// Copies a chosen file into the project's pictures, asking first whether a different file of
// the same name there is replaced or both are kept; nullopt when the author cancels.
std::optional<PictureImport> ImportChosenPicture(QWidget *parent, const AppPaths &paths,
                                                 const QString &file);

// Where a form of that size stands in a frame of this size: centred across, and 1200 twips
// above the middle down, but never above the frame's top.
QPoint CenterChild(QSize frame, QSize form);

} // namespace orrery
