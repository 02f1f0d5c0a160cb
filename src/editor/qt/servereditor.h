// The server editor, "Servers": how many random servers a world has, the fields every server
// has, and the fixed (custom) servers, one box a field.
#pragma once

#include "editor/qt/editorcontext.h"

#include <QWidget>
#include <vector>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;
class QListWidget;
class QPushButton;
class QSpinBox;
class QTabWidget;

namespace orrery {

class ServerEditor : public QWidget {
    Q_OBJECT
public:
    explicit ServerEditor(EditorContext context, QWidget *parent = nullptr);

    // Shows the model again after a step, its undo or its redo.
    void Reload();

    // The field the inputs describe: its name, and its value by the option chosen.
    void AddField();
    // Asks first, then removes the selected field or custom server.
    void RemoveField();
    void RemoveServer();
    // A custom server from the boxes, one a field.
    void AddServer();
    // The record of a custom server in an input box, written back as typed.
    void EditServer(int row);

    QSize sizeHint() const override;

signals:
    // "Ok, close".
    void closeRequested();

private:
    QWidget *MakeFieldsPage();
    QWidget *MakeServersPage();
    void ReloadBoxes();
    void ShowOptionInputs();
    bool Apply(Outcome outcome);

    EditorContext m_context;
    QTabWidget *m_tabs;
    QComboBox *m_count;
    QListWidget *m_fields;
    QLineEdit *m_name;
    QLineEdit *m_value;
    QButtonGroup *m_options;
    QListWidget *m_words;
    QSpinBox *m_low;
    QSpinBox *m_high;
    QWidget *m_numbers;
    QCheckBox *m_random;
    QPushButton *m_removeField;
    QListWidget *m_servers;
    QPushButton *m_removeServer;
    QFormLayout *m_boxes;
    std::vector<QLineEdit *> m_boxEdits;
    std::vector<std::string> m_boxFields;
    QObject *m_selecting = nullptr; // selects a box's text as it gets the focus
};

} // namespace orrery
