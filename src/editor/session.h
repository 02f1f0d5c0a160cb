// The editor's open project: the model and where it lives, opening and creating it, the steps
// made on it with their undo and redo, and the saves that follow each.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/change.h"
#include "foundation/paths.h"
#include "project/defaults.h"
#include "project/saver.h"

namespace orrery {

// The wizard's refusals on its load panel. The folder S of the world template stands beside
// the projects in the list, which is why the first one names it.
inline const Message kInvalidProject{
    "Error", "Please select a project - the one you selected appears invalid.\r\n"
             "(S is the servers, best to not delete it - just ignore it)"};
inline const Message kSettingsNotFound{"Error", "Invalid project - settings.dat not found."};

// The settings page's fields as one step: the author, website, email and description, with
// "/crlf/" for a line break (the name is the folder's and stays). A blank author is refused
// as at creation, and a value the file can't keep as the setting operation refuses it.
Outcome SetProjectInfo(ProjectModel &model, const NewProjectInfo &info);
// The fields of the settings page as the model holds them, line breaks written "/crlf/".
NewProjectInfo ProjectInfo(const ProjectModel &model);

// A file the front end hands to the desktop, or the refusal when it isn't there.
struct FileToOpen {
    std::filesystem::path file;
    std::optional<Message> refusal;
};

class EditorSession {
public:
    // paths: the application folder whose Data holds the projects. stock: the editor's own
    // folder, whose stock files a new tree lacks. screen: the screen a new project is laid out on.
    EditorSession(AppPaths paths, AppPaths stock, HostScreen screen = {});

    const AppPaths &paths() const { return m_paths; }
    bool IsOpen() const { return m_model != nullptr; }
    // The open project; only while IsOpen().
    ProjectModel &model() { return *m_model; }
    const ProjectModel &model() const { return *m_model; }
    // The open project's file; empty before a project is open.
    std::filesystem::path File() const;
    // The frame's title: "Orrery Kit [<name in name form>]", "Orrery Kit []" before a project is open.
    std::string Title() const;
    // What the frame's status line says: why the last save failed, or the stock a new tree lacks.
    const std::string &Status() const { return m_status; }

    // The folders under Data, blank names left out, in the order of their name forms. The
    // world template's S is among them.
    std::vector<std::string> ProjectList() const;
    // Opens the project of that name, or refuses with kInvalidProject when it has no file.
    std::optional<Message> Open(std::string_view name);
    // The wizard's create button: the new project, saved and open, or the refusal in words.
    std::optional<Message> Create(const NewProjectInfo &info);
    // The project's file for a text editor; kSettingsNotFound when it has none.
    FileToOpen SettingsFile(std::string_view name) const;

    // A step an operation has made on the model: saved at once. True when it is a step to keep
    // for undo, false when it was refused or changed nothing.
    bool Apply(const Outcome &outcome);
    // Undo and redo of a kept step, each saved at once.
    void Undo(const Change &change);
    void Redo(const Change &change);

    // The save timer's plain save; never of a project from a scrambled file.
    void Autosave();
    // The author's Exit: a dated backup, then the plain save that leaving the frame makes.
    void Exit();
    // The frame closed without Exit: the plain save alone.
    void Close();
    // What the last save did.
    const SaveResult &LastSave() const { return m_lastSave; }

private:
    void Save(std::string_view mode);

    AppPaths m_paths;
    AppPaths m_stock;
    HostScreen m_screen;
    std::unique_ptr<ProjectModel> m_model;
    std::string m_status;
    SaveResult m_lastSave;
};

} // namespace orrery
