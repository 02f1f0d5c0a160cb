// orrery check.
#include "tools/check_command.h"

#include "check/check.h"
#include "foundation/codepage.h"
#include "foundation/paths.h"
#include "foundation/textfile.h"
#include "project/loader.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>

namespace orrery {

namespace {

std::string_view SeverityWord(Severity severity) {
    return severity == Severity::Error ? "error" : "warning";
}

void PrintText(const std::vector<Finding> &findings, const std::string &file, std::ostream &out) {
    for (const Finding &finding : findings) {
        out << file;
        if (finding.line > 0) out << ":" << finding.line;
        out << ": " << SeverityWord(finding.severity) << ": " << Cp1252ToUtf8(finding.message)
            << "\n";
    }
}

void PrintJson(const std::vector<Finding> &findings, const std::string &file, std::ostream &out) {
    nlohmann::json list = nlohmann::json::array();
    for (const Finding &finding : findings)
        list.push_back({{"file", file},
                        {"line", finding.line},
                        {"severity", SeverityWord(finding.severity)},
                        {"code", finding.code},
                        {"message", Cp1252ToUtf8(finding.message)}});
    out << list.dump(2) << "\n";
}

} // namespace

int CheckCommand(const std::string &appDir, const std::string &name, bool json, std::ostream &out,
                 std::ostream &err) {
    const std::string project = Utf8ToCp1252(name);
    if (const std::string problem = NameProblem(project, NameKind::Project); !problem.empty()) {
        err << "orrery: " << UnusableName(name, NameKind::Project, problem) << "\n";
        return 2;
    }
    const AppPaths paths(appDir);
    const auto file = paths.ProjectFile(project);
    if (!file) {
        err << "orrery: \"" << name << "\" makes no project folder name\n";
        return 2;
    }
    ReadError error = ReadError::None;
    const auto bytes = ReadFileBytes(*file, &error);
    if (!bytes) {
        err << "orrery: " << file->string() << ": "
            << (error == ReadError::Missing ? "no such project" : ReadErrorText(error)) << "\n";
        return 2;
    }
    // The model is read from the very bytes that are checked; nothing is written.
    ProjectModel model;
    LoadProjectText(model, project, *bytes);
    const std::vector<Finding> findings = CheckProject(model, *bytes, paths);
    const std::string shown = file->lexically_relative(paths.Root()).generic_string();
    if (json)
        PrintJson(findings, shown, out);
    else
        PrintText(findings, shown, out);
    const bool errors = std::any_of(findings.begin(), findings.end(), [](const Finding &finding) {
        return finding.severity == Severity::Error;
    });
    return errors ? 1 : 0;
}

} // namespace orrery
