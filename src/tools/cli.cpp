// The orrery tool's commands: new, resave, edit, check, dump, summary, generate, package,
// world, play, scramble, unscramble.
#include "tools/cli.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <iterator>
#include <memory>

#include "foundation/codepage.h"
#include "foundation/paths.h"
#include "foundation/scramble.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "project/defaults.h"
#include "project/loader.h"
#include "project/saver.h"
#include "tools/check_command.h"
#include "tools/dump.h"
#include "tools/edit_command.h"
#include "tools/package_command.h"
#include "tools/play_command.h"
#include "tools/world_commands.h"

namespace orrery {

namespace {

// Arguments arrive in UTF-8; the system's own text is Windows-1252.
struct ProjectArgs {
    std::string appDir;
    std::string name;

    AppPaths Paths() const { return AppPaths(appDir); }
    std::string Name() const { return Utf8ToCp1252(name); }
};

void AddProjectArgs(CLI::App &command, ProjectArgs &args, bool nameRequired = true) {
    command.add_option("app-dir", args.appDir, "The application folder (holds Data/ and Res/)")
        ->required();
    auto *name = command.add_option("name", args.name, "The project's name");
    if (nameRequired) name->required();
}

// Prints why the name can't be used, if it can't, in the check's own words.
bool UsableName(const ProjectArgs &args, std::ostream &err) {
    const std::string problem = NameProblem(args.Name(), NameKind::Project);
    if (!problem.empty())
        err << "orrery: " << UnusableName(args.name, NameKind::Project, problem) << "\n";
    return problem.empty();
}

// Loads the named project; prints why not and returns false when it can't.
bool LoadExisting(ProjectModel &model, const ProjectArgs &args, std::ostream &err) {
    if (!UsableName(args, err)) return false;
    const AppPaths paths = args.Paths();
    const LoadReport report = LoadProject(model, paths, args.Name());
    if (!report.found) err << "orrery: " << report.error << "\n";
    return report.found;
}

int New(const ProjectArgs &args, NewProjectInfo info, std::ostream &out, std::ostream &err) {
    info.name = args.Name();
    if (!IsBlank(info.name) && !UsableName(args, err)) return 1;
    for (std::string *text : {&info.author, &info.website, &info.email, &info.description})
        *text = Utf8ToCp1252(*text);
    ProjectModel model;
    // The tool stands in its own application folder, which carries the stock a new tree needs.
    std::error_code error;
    const AppPaths own(std::filesystem::read_symlink("/proc/self/exe", error).parent_path());
    const CreateResult created = CreateProject(model, args.Paths(), info, {}, &own);
    if (!created.created) {
        err << "orrery: " << created.message << "\n";
        return 1;
    }
    out << "created " << args.Paths().ProjectFile(info.name)->string() << "\n";
    for (const std::string &file : created.missingStock)
        err << "orrery: " << file << " is missing from " << own.Root().string()
            << " and could not be copied into the new tree\n";
    return 0;
}

int Resave(const ProjectArgs &args, bool backup, std::ostream &out, std::ostream &err) {
    ProjectModel model;
    if (!LoadExisting(model, args, err)) return 1;
    const SaveResult saved = SaveProject(model, args.Paths(), backup ? "backup" : "", 1);
    switch (saved.status) {
    case SaveStatus::ReadOnly:
        err << "orrery: \"" << args.name
            << "\" was loaded from a scrambled file and can't be saved\n";
        return 1;
    case SaveStatus::Saved:
        out << "saved " << saved.file.string() << "\n";
        if (!saved.backup.empty()) out << "backup " << saved.backup.string() << "\n";
        if (!saved.error.empty()) err << "orrery: " << saved.error << "\n";
        return saved.error.empty() ? 0 : 1;
    default: err << "orrery: " << saved.error << "\n"; return 1;
    }
}

int Dump(const ProjectArgs &args, std::ostream &out, std::ostream &err) {
    ProjectModel model;
    if (!LoadExisting(model, args, err)) return 1;
    out << ModelToJson(model).dump(2) << "\n";
    return 0;
}

template <typename Table> int Filled(const Table &table) {
    return static_cast<int>(std::count_if(table.begin(), table.end(),
                                          [](const auto &slot) { return !IsBlank(SlotKey(slot)); }));
}

int Summary(ProjectArgs args, std::ostream &out, std::ostream &err) {
    const auto pname = args.Paths().ProjectNameFile();
    ReadError error = ReadError::None;
    if (args.name.empty()) {
        const std::string bytes = ReadFileBytes(pname, &error).value_or("");
        const auto lines = SplitLines(bytes);
        if (!lines.empty()) args.name = Cp1252ToUtf8(Trim(lines.front()));
    }
    if (args.name.empty()) {
        err << "orrery: no project named, and " << pname.string() << " names none"
            << (error == ReadError::None ? "" : ": ") << ReadErrorText(error) << "\n";
        return 1;
    }
    ProjectModel model;
    if (!LoadExisting(model, args, err)) return 1;
    const ProjectSettings &s = model.settings;
    const int elements = static_cast<int>(std::count_if(
        model.ElementTable.begin() + 1, model.ElementTable.end(),
        [](const ElementRow &row) { return !IsBlank(row[kToolColumn]); }));
    out << "Project:        " << args.name << (model.scrambled ? " (scrambled)" : "") << "\n"
        << "File:           " << args.Paths().ProjectFile(args.Name())->string() << "\n"
        << "Author:         " << Cp1252ToUtf8(s.myprojectauthor) << "\n"
        << "Website:        " << Cp1252ToUtf8(s.myprojectwebsite) << "\n"
        << "Tools:          " << Filled(model.ToolNameTable) << "\n"
        << "Elements:       " << elements << "\n"
        << "Qlobs:          " << Filled(model.QlobTable) << "\n"
        << "Variables:      " << Filled(model.VariableTable) << "\n"
        << "Services:       " << Filled(model.ServiceTable) << "\n"
        << "Help topics:    " << Filled(model.HelpTable) << "\n"
        << "Dynamics:       " << Filled(model.DynamicTable) << "\n"
        << "Custom servers: " << Filled(model.CustomServerTable) << "\n"
        << "Random servers: " << s.myserversrandom << "\n"
        << "Start-up:       " << Cp1252ToUtf8(s.mymainsubload) << "\n";
    return 0;
}

// Each line of the input through the function, one output line each.
int EachLine(std::istream &in, std::ostream &out, std::string (*transform)(std::string_view)) {
    const std::string input{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    for (std::string_view line : SplitLines(input)) out << transform(line) << "\n";
    return 0;
}

} // namespace

int RunOrreryCli(const std::vector<std::string> &args, std::istream &in, std::ostream &out,
                 std::ostream &err) {
    if (!args.empty() && args[0] == "edit")
        return EditCommand({args.begin() + 1, args.end()}, in, out, err);
    CLI::App app{"orrery: the command-line tool of Orrery Kit for authors", "orrery"};
    app.require_subcommand(1);

    ProjectArgs project;
    NewProjectInfo info;
    bool backup = false;

    auto *newCommand = app.add_subcommand("new", "Make the application tree and a new project");
    AddProjectArgs(*newCommand, project);
    newCommand->add_option("--author", info.author, "The project's author")->required();
    newCommand->add_option("--website", info.website, "The author's website");
    newCommand->add_option("--email", info.email, "The author's mail address");
    newCommand->add_option("--description", info.description,
                           "Description; \"/crlf/\" starts a new line");

    auto *resave = app.add_subcommand("resave", "Load a project and save it again");
    AddProjectArgs(*resave, project);
    resave->add_flag("--backup", backup, "Also write a dated copy under _autobackup");

    app.add_subcommand("edit", "Edit a project with the editor's operations (orrery edit --help)");

    auto *dump = app.add_subcommand("dump", "Print the loaded project model as JSON");
    AddProjectArgs(*dump, project);

    auto *summary = app.add_subcommand("summary", "Print what a project holds");
    AddProjectArgs(*summary, project, false);

    auto *generate = app.add_subcommand("generate", "Generate the project's world into Data/S");
    AddProjectArgs(*generate, project);

    PackageOptions package;
    auto *packageCommand =
        app.add_subcommand("package", "Build the project's game folder, to play with no editor");
    AddProjectArgs(*packageCommand, project);
    packageCommand->add_option("--out", package.out,
                               "The game folder (Data/<project folder>/Distro by default)");
    packageCommand->add_flag("--pad", package.pad, "Also write the PAD listing beside the folder");
    packageCommand->add_flag("--clean", package.clean, "Empty the game folder first");
    packageCommand->add_flag("--strict", package.strict,
                             "Fail when a file the project names is not found");

    std::string worldFolder, query;
    std::vector<std::string> queryArgs;
    auto *world = app.add_subcommand("world", "Look things up in a world folder (Data/S or a profile's)");
    world->add_option("folder", worldFolder, "The world folder")->required();
    world->add_option("query", query, "resolve-ip, resolve-hostname, exists, property, random-ip, random-hostname")
        ->required()
        ->check(CLI::IsMember(kWorldQueries));
    world->add_option("args", queryArgs, "Hosts to look up; for property, a host and a property name");

    PlayOptions play;
    bool loadGame = false;
    auto *playCommand = app.add_subcommand("play", "Play a game without a display, from a script");
    playCommand->add_option("app-dir", play.appDir, "The application folder")->required();
    playCommand->add_option("name", play.project, "The project's name")->required();
    playCommand->add_option("--player", play.player, "The player's profile name")->required();
    auto *fresh = playCommand->add_flag("--new", play.newGame, "Start a new profile");
    playCommand->add_flag("--load", loadGame, "Load the saved profile")->excludes(fresh);
    playCommand->add_option("--script", play.script, "The script file; standard input when absent or -");

    bool json = false;
    auto *check =
        app.add_subcommand("check", "Check a project's sequences, names and files; nothing is changed");
    AddProjectArgs(*check, project);
    check->add_flag("--json", json, "The findings as a JSON array");

    auto *scramble = app.add_subcommand("scramble", "Scramble each line of standard input");
    auto *unscramble = app.add_subcommand("unscramble", "Unscramble each line of standard input");

    const auto commands = app.get_subcommands([](const CLI::App *) { return true; });
    if (!args.empty() && !args[0].starts_with("-") &&
        std::none_of(commands.begin(), commands.end(),
                     [&](const CLI::App *command) { return command->get_name() == args[0]; })) {
        err << "orrery: unknown command \"" << args[0] << "\"\nRun with --help for the commands.\n";
        return 2;
    }
    try {
        std::vector<std::string> reversed(args.rbegin(), args.rend());
        app.parse(reversed);
    } catch (const CLI::ParseError &error) {
        const int code = app.exit(error, out, err);
        return code == 0 ? 0 : 2;
    }

    if (newCommand->parsed()) return New(project, info, out, err);
    if (resave->parsed()) return Resave(project, backup, out, err);
    if (dump->parsed()) return Dump(project, out, err);
    if (check->parsed()) return CheckCommand(project.appDir, project.name, json, out, err);
    if (summary->parsed()) return Summary(project, out, err);
    if (playCommand->parsed()) {
        if (play.newGame == loadGame) {
            err << "orrery: play needs one of --new and --load\n";
            return 2;
        }
        return PlayCommand(play, in, out, err);
    }
    if (generate->parsed()) {
        ProjectModel model;
        if (!LoadExisting(model, project, err)) return 1;
        return GenerateCommand(project.Paths(), model, out, err);
    }
    if (packageCommand->parsed()) {
        ProjectModel model;
        if (!LoadExisting(model, project, err)) return 1;
        return PackageCommand(project.Paths(), model, package, out, err);
    }
    if (world->parsed()) return WorldCommand(worldFolder, query, queryArgs, out, err);
    if (scramble->parsed())
        return EachLine(in, out, [](std::string_view line) { return ScrambleText(line); });
    if (unscramble->parsed()) return EachLine(in, out, UnscrambleText);
    return 2;
}

} // namespace orrery
