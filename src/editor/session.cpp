// The editor's session on one project: opening, creating, steps with undo and redo, and saves.
#include "editor/session.h"

#include <algorithm>
#include <utility>

#include "editor/sequences.h"
#include "foundation/codepage.h"
#include "foundation/text.h"
#include "project/loader.h"

namespace orrery {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kLineBreakInField = "/crlf/";

// Why the wizard's fields can't be kept as typed: the file cuts a value at its first colon, so
// a website is written without its "http://".
std::optional<Message> UnwritableInfo(const NewProjectInfo &info) {
    const std::pair<std::string_view, const std::string *> fields[] = {
        {"author", &info.author}, {"website", &info.website}, {"e-mail address", &info.email},
        {"description", &info.description}};
    for (const auto &[what, text] : fields)
        if (text->find(':') != std::string::npos)
            return Message{"Error", "The " + std::string(what) +
                                        " can't hold a colon: the project file would cut it "
                                        "there. Write a website without \"http://\"."};
    return std::nullopt;
}

} // namespace

Outcome SetProjectInfo(ProjectModel &model, const NewProjectInfo &info) {
    if (IsBlank(info.author)) return {Change(), Message{"Error", std::string(kMissingNameOrAuthor)}, {}};
    if (auto problem = UnwritableInfo(info)) return {Change(), problem, {}};
    // The description's setting reads "//" as a line break, as the file does.
    const std::pair<std::string_view, std::string> fields[] = {
        {"myprojectauthor", Trim(info.author)},
        {"myprojectwebsite", Trim(info.website)},
        {"myprojectemail", Trim(info.email)},
        {"myprojectdescription", ReplaceAll(Trim(info.description), kLineBreakInField, "//")},
    };
    Transaction t(model, "Change Project Settings");
    for (const auto &[key, value] : fields)
        if (auto refusal = t.Take(SetSetting(model, key, value))) return t.Refuse(*refusal);
    return t.Commit();
}

NewProjectInfo ProjectInfo(const ProjectModel &model) {
    const ProjectSettings &s = model.settings;
    return {s.myprojectname, s.myprojectauthor, s.myprojectwebsite, s.myprojectemail,
            ReplaceAll(s.myprojectdescription, "\r\n", kLineBreakInField)};
}

EditorSession::EditorSession(AppPaths paths, AppPaths stock, HostScreen screen)
    : m_paths(std::move(paths)), m_stock(std::move(stock)), m_screen(screen) {}

std::filesystem::path EditorSession::File() const {
    if (!IsOpen()) return {};
    return m_paths.ProjectFile(m_model->settings.myprojectname).value_or(std::filesystem::path());
}

std::string EditorSession::Title() const {
    return "Orrery Kit [" + (IsOpen() ? NormText(m_model->settings.myprojectname) : std::string()) + "]";
}

std::vector<std::string> EditorSession::ProjectList() const {
    std::vector<std::string> names;
    std::error_code error;
    for (const fs::directory_entry &entry : fs::directory_iterator(m_paths.DataPath(), error)) {
        if (!entry.is_directory(error)) continue;
        // Folder names are UTF-8 on disk; a project's name is text of the system.
        std::string name = Utf8ToCp1252(entry.path().filename().string());
        if (!IsBlank(name)) names.push_back(std::move(name));
    }
    std::sort(names.begin(), names.end(),
              [](const std::string &a, const std::string &b) { return NormText(a) < NormText(b); });
    return names;
}

std::optional<Message> EditorSession::Open(std::string_view name) {
    if (IsBlank(name) || !m_paths.ProjectExists(name)) return kInvalidProject;
    auto model = std::make_unique<ProjectModel>();
    const LoadReport report = LoadProject(*model, m_paths, name, m_screen);
    if (!report.found) return kInvalidProject;
    // The reader gives the menu the screen's size, which a save records; until the menu
    // designer sets it, the editor keeps the file's, so opening a project on another screen
    // changes nothing.
    if (report.savedMenuWidth > 0) model->settings.mymenufullwidth = report.savedMenuWidth;
    if (report.savedMenuHeight > 0) model->settings.mymenufullheight = report.savedMenuHeight;
    m_model = std::move(model);
    m_status.clear();
    return std::nullopt;
}

std::optional<Message> EditorSession::Create(const NewProjectInfo &info) {
    if (!IsBlank(info.name) && !IsBlank(info.author))
        if (auto problem = UnwritableInfo(info)) return problem;
    auto model = std::make_unique<ProjectModel>();
    const CreateResult created = CreateProject(*model, m_paths, info, m_screen, &m_stock);
    if (!created.created) return Message{"Error", created.message};
    m_model = std::move(model);
    m_status.clear();
    for (const std::string &file : created.missingStock)
        m_status += file + " is missing from " + m_stock.Root().string() + ". ";
    return std::nullopt;
}

FileToOpen EditorSession::SettingsFile(std::string_view name) const {
    if (!IsBlank(name) && m_paths.ProjectExists(name)) return {*m_paths.ProjectFile(name), std::nullopt};
    return {{}, kSettingsNotFound};
}

bool EditorSession::Apply(const Outcome &outcome) {
    if (!IsOpen() || outcome.refused() || outcome.change.empty()) return false;
    Save("");
    return true;
}

void EditorSession::Undo(const Change &change) {
    if (!IsOpen()) return;
    change.Undo(*m_model);
    Save("");
}

void EditorSession::Redo(const Change &change) {
    if (!IsOpen()) return;
    change.Redo(*m_model);
    Save("");
}

void EditorSession::Autosave() {
    if (IsOpen() && !m_model->scrambled) Save("");
}

void EditorSession::Exit() {
    Save("backup");
    Save("");
}

void EditorSession::Close() {
    Save("");
}

void EditorSession::Save(std::string_view mode) {
    if (!IsOpen()) return;
    m_lastSave = SaveProject(*m_model, m_paths, mode, 1);
    m_status = m_lastSave.error;
}

} // namespace orrery
