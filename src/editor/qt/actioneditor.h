// The action editor: a sequence composed from the catalogue's functions, one statement at a
// time with the inputs its parameters call for and the checker's verdict on it, into a list
// that is reordered, copied, pasted or edited as text, and stored back as one step.
#pragma once

#include "actions/catalogue.h"
#include "editor/actions.h"
#include "editor/qt/editorcontext.h"

#include <QDialog>
#include <array>
#include <string>
#include <vector>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QStackedWidget;
class QWidget;

namespace orrery {

class ActionEditor : public QDialog {
    Q_OBJECT
public:
    ActionEditor(EditorContext context, SequencePlace place, QWidget *parent = nullptr);

    // The sequence's lines as the list, or the text view while it shows, holds them.
    std::vector<std::string> lines() const;
    // The chosen function; nullptr before one is chosen.
    const CatalogueEntry *function() const { return m_entry; }

    // Shows the inputs of a function of the catalogue.
    void ChooseFunction(const CatalogueEntry *entry);
    // Assign Command: the composed statement's lines go in after the chosen line, or at the end.
    void AssignCommand();
    // Save and close: the lines stored where the sequence came from, as one step.
    void Save();
    // Puts the list into the text view, or the text view's lines back into the list.
    void ShowAsText(bool text);

private:
    // The inputs of one parameter; which of them shows depends on its kind.
    struct Param {
        QLabel *label = nullptr;
        QWidget *row = nullptr;
        QComboBox *list = nullptr;
        QLineEdit *text = nullptr;
        QFrame *swatch = nullptr;
        QPushButton *colour = nullptr;
        QPushButton *file = nullptr;
        QPushButton *window = nullptr;
        ParamKind kind = ParamKind::General;
    };

    QWidget *MakeFunctions();
    QWidget *MakeComposer();
    QWidget *MakeSequence();
    void MakeParam(int i);
    void FillFunctions();
    void FillParam(Param &param);
    void FillTarget();
    void RefillElements();
    std::string ChosenTool() const;
    bool IsList(const Param &param) const;
    Composition Compose() const;
    void UpdateVerdict();
    void LoadLine(const std::string &line);
    void SetLines(const std::vector<std::string> &lines);
    void InsertLines(const std::vector<std::string> &lines, int select);
    void Move(int by);
    void Remove();
    void Copy();
    void Paste();
    void NewVariable();
    void AddCondition();
    void ChooseColour(Param &param);
    void ChooseFile(Param &param);
    void GetElement(Param &param);
    ProjectModel &model() const;

    EditorContext m_context;
    SequencePlace m_place;
    const CatalogueEntry *m_entry = nullptr;
    QButtonGroup *m_filter = nullptr;
    QListWidget *m_functions = nullptr;
    QLabel *m_name = nullptr;
    QWidget *m_targetRow = nullptr;
    QComboBox *m_target = nullptr;
    std::array<Param, kMaxParams + 1> m_params; // 1 to 5, as the labels count them
    QComboBox *m_conditions = nullptr;
    QLabel *m_verdict = nullptr;
    QStackedWidget *m_views = nullptr;
    QListWidget *m_list = nullptr;
    QPlainTextEdit *m_text = nullptr;
    QCheckBox *m_asText = nullptr;
    std::vector<QPushButton *> m_listOnly; // the buttons that work on the list's lines
};

} // namespace orrery
