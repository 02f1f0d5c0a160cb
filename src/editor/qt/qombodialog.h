// The qombo creator: the seven ready-made groups with a sample of each, the tool drawn as the
// player will see it with an orange marker dragged to where the group goes, and the step that
// adds the chosen group there.
#pragma once

#include "editor/elements.h"
#include "editor/qt/editorcontext.h"
#include "editor/qt/previewhost.h"

#include <QDialog>
#include <array>
#include <optional>
#include <string>

class QLineEdit;
class QPushButton;
class QRadioButton;

namespace orrery {

class QomboMarker;
class ToolView;

class QomboDialog : public QDialog {
    Q_OBJECT
public:
    // The creator over a tool of the open project.
    QomboDialog(EditorContext context, std::string tool, QWidget *parent = nullptr);
    ~QomboDialog() override;

    // The type chosen, 1 to 7.
    int type() const;
    // Where the group's top left corner goes, in twips from the tool panel's, as Text3 and
    // Text4 read as 16-bit numbers; nullopt while either holds something else.
    std::optional<Position> position() const;
    // Puts the marker there, as it stands: a typed place is not snapped.
    void PlaceMarker(Position at);
    // The marker's place in Picture1's pixels.
    QRect MarkerRect() const;

    // Command4: adds the chosen group at the position as one step, then closes; accepted when
    // the group was added.
    void Add();
    // Cancel, Escape and the close button; not while the group is being added.
    void reject() override;

private:
    QWidget *MakeChoices();
    QWidget *MakeCard(int type);
    QWidget *MakePicture();
    QWidget *MakePosition();
    // The marker's gestures, in Picture1's pixels.
    void MarkerDragged(QPoint delta);
    void MarkerDropped();
    void Typed();
    void ShowPosition();
    void UpdateFootprint();

    EditorContext m_context;
    std::string m_tool;
    PreviewHost m_host;
    ToolView *m_view = nullptr;
    QWidget *m_picture = nullptr;
    QomboMarker *m_marker = nullptr;
    std::array<QRadioButton *, kQomboTypes> m_options{};
    std::array<QSize, kQomboTypes> m_footprints{}; // each group's size, in pixels
    QLineEdit *m_left = nullptr;
    QLineEdit *m_top = nullptr;
    QPushButton *m_add = nullptr;
    QPushButton *m_cancel = nullptr;
    Position m_at;       // the marker's place in twips: the truth its pixels round
    Position m_dragFrom; // where a drag began
    bool m_adding = false;
};

} // namespace orrery
