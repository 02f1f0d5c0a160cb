// The distribution builder: a project packed into a game folder that plays with no editor. The
// run-time under the project's name, the project file scrambled, a freshly generated world, the
// media the project names, its fonts, a readme and, if asked, a PAD listing beside the folder.
// One function, used by the editor's builder and by orrery package.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrery {

class AppPaths;
class Random;
struct ProjectModel;

struct DistributionOptions {
    // The game folder; empty for Data/<project folder>/Distro.
    std::filesystem::path out;
    // The run-time shipped under the project's name; empty for RunTimeProgram's.
    std::filesystem::path runner;
    // Qt's plugin folder, whose display and picture plugins the run-time takes along; empty to
    // find it beside the Qt libraries the run-time uses.
    std::filesystem::path qtPlugins;
    // Empties the game folder first. A build otherwise adds and overwrites, never deletes.
    bool clean = false;
    // Writes the PAD listing beside the game folder, from Data/pad-template.xml.
    bool pad = false;
    std::string cost;                      // the listing's price, as typed
    std::chrono::year_month_day today{};   // the listing's release date; unset: today
    // The log, line by line ("Copying file: logo.bmp").
    std::function<void(const std::string &)> say;
    // Each octet of the world as it is generated, with the octet's number.
    std::function<void(int octet)> octet;
    // The file of a font the project uses that is not a standard one; nullopt when none is to
    // be had. Each font is asked for once.
    std::function<std::optional<std::filesystem::path>(const std::string &font)> fontFile;
    Random *random = nullptr; // for the scrambling and the world; the process's by default
};

struct DistributionResult {
    bool done = false;
    std::string error; // why the build stopped, for a person
    std::filesystem::path root;
    // Each file the project names that was not shipped, as the log names it
    // ("Res/uimages/logo.bmp", "font Tahoma").
    std::vector<std::string> missing;
    std::uint64_t sizeTotal = 0; // the listing's size: 2,000,000 and the sound and music shipped
    // The build report: each file this build wrote in the folder, relative to it, with its
    // size; the files of Res/ that nothing in the project names, so were not shipped; the
    // files in the folder that this build did not write; and the folder's size.
    std::vector<std::pair<std::string, std::uint64_t>> written;
    std::vector<std::string> unnamed;
    std::vector<std::string> notWritten;
    std::uint64_t folderSize = 0;
};

// The report's lines: the files written with their sizes, those missing with the line of the
// project file that names each, those of Res/ not shipped, those in the folder not written by
// the build, and the total size. projectText gives the lines.
std::vector<std::string> BuildReport(const DistributionResult &result, std::string_view projectText);

// The run-time a tree plays and ships: its own Data/runner, or else the one beside the running
// program (the editor and orrery stand at the root of the tree they came with).
std::filesystem::path RunTimeProgram(const AppPaths &tree);

DistributionResult BuildDistribution(const ProjectModel &model, const AppPaths &app,
                                     const DistributionOptions &options);

// The fonts the project file names that are not standard ones (Verdana, Times New Roman,
// Arial, Courier New, Georgia and Fixedsys, and every font whose name holds one of them), in
// the order of the file, each once.
std::vector<std::string> RequiredFonts(std::string_view projectText);

// What a PAD listing is filled with.
struct PadValues {
    std::string projectName;
    std::chrono::year_month_day released{};
    std::string cost;
    std::uint64_t sizeBytes = 0;
    std::string keywords;
    std::string description45, description250, description2000;
};
// The template with every "$pad-" variable replaced.
std::string ReplacePadVars(std::string_view padTemplate, const PadValues &values);
// The name of the PAD file, and stem of the installer's: the project name stripped of
// punctuation, in name form, its blanks as "_".
std::string PadFileStem(std::string_view projectName);

} // namespace orrery
