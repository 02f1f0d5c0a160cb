// The tool editor's property panel: every property the selected elements' kinds share, from
// the element property table, each with the editor a person expects; every change one step.
#pragma once

#include "editor/elements.h"
#include "editor/qt/editorcontext.h"

#include <QWidget>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

class QFont;
class QFormLayout;
class QLabel;
class QScrollArea;
class QStackedLayout;

namespace orrery {

class PropertyPanel : public QWidget {
    Q_OBJECT
public:
    explicit PropertyPanel(EditorContext context, QWidget *parent = nullptr);
    ~PropertyPanel() override;

    // Shows the named elements (stored names: "labelstatus"): the properties all their kinds
    // share, a value that differs between them shown as mixed. An edit still being typed is
    // committed to the elements shown before. Names of no element are passed over; none: the
    // panel says that nothing is selected.
    void ShowElements(std::vector<std::string> names);
    // The model has changed (a step, an undo): shows its values again, and drops the names
    // that no element has any more.
    void Reload();
    const std::vector<std::string> &elements() const { return m_names; }

    // What the dialogs hand back, each one step on every element shown. False when nothing was
    // kept: refused (the refusal shown), cancelled, or no change.
    // The font dialog's choice: name, size, bold, italic and underline at once.
    bool SetFont(const QFont &font);
    // A colour property ("forecolor"...).
    bool SetColour(std::string_view key, const QColor &colour);
    // A picture file for an image: taken into Res/uimages (asking before a different picture
    // of the same name is replaced), then its name stored.
    bool SetPicture(const QString &file);
    // A list's items or a console's commands, one an entry.
    bool SetItems(std::string_view key, const std::vector<std::string> &items);
    // The action editor on the one element shown; its save is one step.
    void AssignActions();

private:
    struct Editor;

    void Rebuild();
    void ShowValues();
    void CommitPending();
    bool Commit(std::vector<PropertySetting> values, std::string mergeKey = {});
    QString SelectionTitle() const;

    void AddSection(QFormLayout *form, const QString &title);
    void AddEditor(QFormLayout *form, const ElementProperty &property);
    void AddStyleRow(QFormLayout *form, const std::vector<const ElementProperty *> &flags);
    Editor ToolEditor(const ElementProperty &property);
    Editor TextEditor(const ElementProperty &property);
    Editor LinesEditor(const ElementProperty &property);
    Editor NumberEditor(const ElementProperty &property);
    Editor ChoiceEditor(const ElementProperty &property);
    Editor ColourEditor(const ElementProperty &property);
    Editor FlagEditor(const ElementProperty &property);
    Editor FontEditor(const ElementProperty &property);
    Editor ItemsEditor(const ElementProperty &property);
    Editor PictureEditor(const ElementProperty &property);
    Editor ActionEditor(const ElementProperty &property);

    void ChooseFont();
    void ChooseColour(std::string_view key);
    void ChoosePicture();
    void EditItems(const ElementProperty &property);

    EditorContext m_context;
    std::vector<std::string> m_names;
    KindSet m_kinds = 0; // the kinds whose shared properties the editors show
    std::vector<Editor> m_editors;
    QLabel *m_title;
    QLabel *m_subtitle;
    QStackedLayout *m_pages;
    QScrollArea *m_scroll;
    bool m_showing = false;
};

} // namespace orrery
