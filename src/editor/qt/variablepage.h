// The tool editor's page of user variables: the list with their default values, a new one
// by name and value, and removal.
#pragma once

#include "editor/qt/pageparts.h"

class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace orrery {

class VariablePage : public EditorPage {
    Q_OBJECT
public:
    explicit VariablePage(EditorContext context, QWidget *parent = nullptr);
    void Reload() override;
    bool ShowItem(const FindingPlace &place) override;

    // Adds the variable of the name and value fields; the fields empty once it is added.
    void AddVariable();
    // Asks first, then removes the selected variable.
    void RemoveVariable();

private:
    QString SelectedName() const;

    QTreeWidget *m_list;
    QLineEdit *m_name;
    QLineEdit *m_value;
    QPushButton *m_remove;
};

} // namespace orrery
