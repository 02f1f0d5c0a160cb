// The project wizard: a new project's fields or the list of projects to open; and, for the open
// project, its settings page.
#pragma once

#include "project/defaults.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedLayout;

namespace orrery {

class EditorSession;

class ProjectWizard : public QWidget {
    Q_OBJECT
public:
    // Start: the wizard before a project is open, its panels to create or to open one.
    // Settings: the new-project panel alone, filled from the open project, whose button writes
    // the fields back.
    enum class Mode { Start, Settings };

    ProjectWizard(EditorSession &session, Mode mode, QWidget *parent = nullptr);

    // The new-project panel; in settings, with the fields as the model holds them.
    void ShowNew();
    // The load panel, with the list read again.
    void ShowLoad();
    void LoadProjectsList();
    // The create button: a refusal in a message box, or the project open. In settings, the
    // fields handed on as settingsSubmitted.
    void Create();
    // Opens the project selected in the list.
    void LoadOne();
    // The selected project's settings.dat in the desktop's text editor.
    void EditSettingsFile();
    // The Data folder in the desktop's file manager.
    void OpenDataFolder();

signals:
    void projectOpened();
    void settingsSubmitted(const orrery::NewProjectInfo &info);

private:
    QWidget *NewBox();
    QWidget *LoadBox();
    QWidget *Switches();
    NewProjectInfo Fields() const;
    void SetFields(const NewProjectInfo &info);
    std::string SelectedName() const;

    EditorSession &m_session;
    Mode m_mode;
    QStackedLayout *m_boxes = nullptr;
    QWidget *m_boxNew = nullptr;
    QWidget *m_boxLoad = nullptr;
    QPushButton *m_showNew = nullptr;
    QPushButton *m_showLoad = nullptr;
    QLineEdit *m_name = nullptr;
    QLineEdit *m_author = nullptr;
    QLineEdit *m_website = nullptr;
    QLineEdit *m_email = nullptr;
    QLineEdit *m_description = nullptr;
    QListWidget *m_list = nullptr;
};

} // namespace orrery
