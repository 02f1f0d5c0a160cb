// The distribution builder.
#include "packaging/distribution.h"

#include "actions/catalogue.h"
#include "actions/sequence.h"
#include "actions/statement.h"
#include "foundation/codepage.h"
#include "foundation/convert.h"
#include "foundation/paths.h"
#include "foundation/random.h"
#include "foundation/scramble.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "network/generator.h"
#include "packaging/runtimefolder.h"
#include "platform/soundfont.h"
#include "project/defaults.h"
#include "project/elementprops.h"
#include "project/model.h"

#include <algorithm>
#include <array>
#include <set>
#include <cstdio>
#include <utility>

namespace orrery {

namespace fs = std::filesystem;

namespace {

// What the listing counts before the sound and music: the run-time and the rest.
constexpr std::uint64_t kBaseSize = 2000000;

constexpr std::array<std::string_view, 6> kStandardFonts{
    "verdana", "times new roman", "arial", "courier new", "georgia", "fixedsys"};

std::string TwoDigits(unsigned value) {
    char text[8];
    std::snprintf(text, sizeof text, "%02u", value % 100);
    return text;
}

// The game folder may be emptied only when a build made it: it holds the project scrambled, as
// only a build writes it, and no project in clear, as every application folder holds. A folder
// that holds the application, or one that is not empty and holds no game, is refused.
std::string CannotClean(const fs::path &root, const AppPaths &app, const std::string &folder) {
    std::error_code error;
    const fs::path target = fs::weakly_canonical(root, error);
    const fs::path appRoot = fs::weakly_canonical(app.Root(), error);
    const auto [end, rest] = std::mismatch(target.begin(), target.end(), appRoot.begin(), appRoot.end());
    if (end == target.end() || !target.has_relative_path())
        return target.string() + ": will not empty a folder that holds the application";
    if (!fs::is_directory(target, error) || fs::is_empty(target, error)) return {};
    const auto projects = [&target]() {
        std::vector<std::string> firstLines;
        std::error_code ignored;
        for (fs::directory_iterator it(target / "Data", ignored), last; !ignored && it != last;
             it.increment(ignored)) {
            const std::string text = ReadFileBytes(it->path() / "settings.dat").value_or("");
            if (!text.empty()) firstLines.push_back(text.substr(0, text.find_first_of("\r\n")));
        }
        return firstLines;
    }();
    const bool scrambled = ReadFileBytes(target / "Data" / folder / "settings.dat")
                               .value_or("")
                               .starts_with("[revise]");
    if (!scrambled || std::any_of(projects.begin(), projects.end(),
                                  [](const std::string &line) { return line != "[revise]"; }))
        return target.string() + ": will not empty a folder that holds no game built from this project";
    return {};
}

class Builder {
public:
    Builder(const ProjectModel &model, const AppPaths &app, const DistributionOptions &options,
            DistributionResult &result)
        : m_model(model), m_app(app), m_options(options), m_result(result),
          m_random(options.random ? *options.random : ProcessRandom()) {}

    void Run();

private:
    const ProjectSettings &Settings() const { return m_model.settings; }
    void Say(const std::string &line) {
        if (m_options.say) m_options.say(line);
    }
    // A file of the folder that this build has written.
    void Wrote(const fs::path &file) {
        std::error_code error;
        m_written.insert(fs::relative(file, m_root, error).generic_string());
    }
    void Report();
    void Missing(std::string what) {
        auto &missing = m_result.missing;
        if (std::find(missing.begin(), missing.end(), what) == missing.end())
            missing.push_back(std::move(what));
    }
    // Copies a file the project names below Res/<folder>, under the log's words; its length
    // counts towards the listing's size when sized. A blank name names nothing.
    void CopyMedia(std::string_view says, std::string_view folder, std::string_view name,
                   bool sized = false);
    bool CopyProjectFile();
    void CopyRunTime();
    bool GenerateWorld();
    void CopyMediaOfStatements();
    void CopySoundFont();
    void CopyFonts();
    void WriteReadme();
    void WritePad();

    const ProjectModel &m_model;
    const AppPaths &m_app;
    const DistributionOptions &m_options;
    DistributionResult &m_result;
    Random &m_random;
    std::string m_folder; // the project's folder name, as the application tree spells it
    fs::path m_root;
    std::set<std::string> m_written;
    bool m_midi = false; // a MIDI file is among the sound and music shipped
};

void Builder::CopyMedia(std::string_view says, std::string_view folder, std::string_view name,
                        bool sized) {
    const std::string file = Trim(name);
    if (file.empty()) return;
    Say(std::string(says) + file);
    const auto source = FindMediaFile(m_app.ResPath() / folder, file);
    std::error_code error;
    const fs::path target = source ? m_root / "Res" / folder / source->filename() : fs::path();
    if (!source || !fs::copy_file(*source, target, fs::copy_options::overwrite_existing, error)) {
        Missing("Res/" + std::string(folder) + "/" + file);
        return;
    }
    Wrote(target);
    if (!sized) return;
    m_result.sizeTotal += fs::file_size(*source, error);
    const std::string extension = LowerCase(source->extension().string());
    m_midi = m_midi || extension == ".mid" || extension == ".midi";
}

// The project file, scrambled line by line behind the marker.
bool Builder::CopyProjectFile() {
    Say("Copying (and encrypting) file: settings.dat");
    const auto file = m_app.ProjectFile(Settings().myprojectname);
    ReadError why = ReadError::None;
    const auto text = file ? ReadFileBytes(*file, &why) : std::nullopt;
    if (!text) {
        m_result.error = (file ? file->string() : std::string("the project file")) + ": " +
                         std::string(ReadErrorText(why));
        return false;
    }
    std::string scrambled = "[revise]\r\n";
    if (text->starts_with("[revise]")) {
        scrambled = *text; // a distribution's own file is shipped as it is
    } else {
        ForEachLine(*text, [&](std::string_view line) {
            scrambled += ScrambleText(line, m_random);
            scrambled += "\r\n";
        });
    }
    const fs::path target = m_root / "Data" / m_folder / "settings.dat";
    std::error_code error;
    fs::create_directories(target.parent_path(), error);
    if (!ReplaceFileAtomically(target, scrambled)) {
        m_result.error = target.string() + ": cannot be written";
        return false;
    }
    Wrote(target);
    return true;
}

// The run-time under the project's name, beside Data; it plays the game pname.dat names.
void Builder::CopyRunTime() {
    const fs::path runner = m_options.runner.empty() ? RunTimeProgram(m_app) : m_options.runner;
    const fs::path target = m_root / m_folder;
    Say("Copying file: " + Utf8ToCp1252(target.filename().string()));
    std::error_code error;
    if (!fs::copy_file(runner, target, fs::copy_options::overwrite_existing, error)) {
        Missing("run-time " + runner.string());
        return;
    }
    fs::permissions(target, fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec,
                    fs::perm_options::add, error);
    Wrote(target);
    // What lets it play on a machine with no Qt: its libraries, plugins and run paths.
    const RunTimeFolder runtime = ShipRunTimeLibraries(target, m_options.qtPlugins, m_options.say);
    for (const std::string &problem : runtime.problems) Missing("run-time: " + problem);
    for (const std::string &file : runtime.shipped) Wrote(m_root / file);
    if (!runtime.shipped.empty()) Wrote(m_root / "qt.conf");
    Say("Creating file: pname.dat");
    if (WriteTextFile(m_root / "Data" / "pname.dat", Utf8ToCp1252(m_folder))) Wrote(m_root / "Data" / "pname.dat");
}

bool Builder::GenerateWorld() {
    Say("GENERATING RANDOM SERVERS");
    const fs::path world = m_root / "Data" / "S";
    WordBank words;
    int octet = 0;
    const GenerateResult generated =
        GenerateWorldInto(m_app.DataPath(), world, m_model, words, m_random, [&](const std::string &line) {
            Say(line);
            if (m_options.octet) m_options.octet(++octet);
        });
    if (!generated.done) {
        m_result.error = generated.error;
        return false;
    }
    // A world of no random servers still has its directory of names, empty.
    if (!FileExists(world / "dns.dat")) WriteTextFile(world / "dns.dat", "");
    Wrote(world / "dns.dat");
    if (generated.serversPerOctet > 0)
        for (int o = 1; o <= 255; ++o) Wrote(world / ("_" + IntText(o) + "_.dat"));
    return true;
}

// The media named by statements: the arguments of the file, audio and image kinds of every
// statement the run-time walks in the elements' actions, the qlobs, the tools' events and the
// start-up sequence. Sounds and music count towards the listing's size.
void Builder::CopyMediaOfStatements() {
    std::vector<std::string_view> sequences;
    for (const ElementRow &row : m_model.ElementTable)
        if (!IsBlank(row[kNameColumn])) sequences.push_back(row[kActionColumn]);
    for (const std::string &qlob : m_model.QlobTable) {
        // A qlob's record begins with its name.
        const std::string_view record = TrimView(qlob);
        const std::size_t blank = record.find(' ');
        if (blank != std::string_view::npos) sequences.push_back(record.substr(blank));
    }
    for (const auto &sub : m_model.ToolSubTable) sequences.push_back(sub.sequence);
    sequences.push_back(Settings().mymainsubload);
    for (std::string_view sequence : sequences) {
        if (IsBlank(sequence)) continue;
        const std::string prepared = PrepareSequence(sequence);
        for (std::string_view field : SequenceFields(prepared)) {
            std::string line = Trim(field);
            if (IsSkippedLine(line) || line.starts_with('~') || GotoTag(line) || OpensLoop(line) ||
                ClosesLoop(line))
                continue;
            std::string condition;
            CutCondition(line, condition);
            const StatementParts parts = SplitStatement(line);
            const CatalogueEntry *entry = FindCatalogueEntry(parts.name);
            if (!entry) continue;
            for (std::size_t i = 0; i < entry->ParamCount(); ++i) {
                const ParamKind kind = ParamKindOf(entry->labels[i]);
                if (kind != ParamKind::File && kind != ParamKind::Audio && kind != ParamKind::Image)
                    continue;
                // An argument holding a variable names its file only when the game runs.
                const std::string file = NormText(BracketArg(parts.rest, static_cast<int>(i) + 1));
                if (file.find('$') != std::string::npos || file.find("(?)") != std::string::npos)
                    continue;
                if (kind == ParamKind::Audio)
                    CopyMedia("Copying file (sound/music): ", "uimages", file, true);
                else if (entry->name == "SET_BACKGROUND_IMAGE")
                    CopyMedia("Copying file (background): ", "uimages", file);
                else
                    CopyMedia("Copying file: ", "uimages", file);
            }
        }
    }
}

// MIDI plays with a General MIDI sound font, which a player's machine may lack: the game
// carries the application's own, or else the system's.
void Builder::CopySoundFont() {
    const fs::path target = m_root / kGameSoundFont;
    Say("Copying file (sound font): " + target.filename().string());
    const auto font = FindSoundFont(m_app.Root());
    std::error_code error;
    if (!font || !fs::copy_file(*font, target, fs::copy_options::overwrite_existing, error)) {
        Missing(std::string(kGameSoundFont));
        return;
    }
    Wrote(target);
}

void Builder::CopyFonts() {
    const auto file = m_app.ProjectFile(Settings().myprojectname);
    const std::string text = file ? ReadFileBytes(*file).value_or("") : std::string();
    for (const std::string &font : RequiredFonts(text)) {
        const auto found = m_options.fontFile ? m_options.fontFile(font) : std::nullopt;
        if (!found) {
            Say("Font not found: " + font);
            Missing("font " + font);
            continue;
        }
        Say("Copying file (font): " + Utf8ToCp1252(found->filename().string()));
        std::error_code error;
        if (!fs::copy_file(*found, m_root / "Fonts" / found->filename(),
                           fs::copy_options::overwrite_existing, error))
            Missing("font " + font);
        else
            Wrote(m_root / "Fonts" / found->filename());
    }
}

void Builder::WriteReadme() {
    Say("Writing file: readme.txt");
    const ProjectSettings &s = Settings();
    std::string text = "-===[ " + s.myprojectname + " ]==-\r\n\r\n";
    text += "A game by " + Trim(s.myprojectauthor) + ".\r\n";
    if (!IsBlank(s.myprojectwebsite)) text += "Website: " + Trim(s.myprojectwebsite) + "\r\n";
    if (!IsBlank(s.myprojectemail)) text += "Mail: " + Trim(s.myprojectemail) + "\r\n";
    text += "\r\nStart the game with the program named " + Utf8ToCp1252(m_folder) +
            " in this folder.\r\nQuestions about the game go to its author.";
    if (WriteTextFile(m_root / "readme.txt", text)) Wrote(m_root / "readme.txt");
}

void Builder::WritePad() {
    const std::string stem = PadFileStem(Settings().myprojectname);
    Say("Creating PAD file: " + stem + ".xml");
    const fs::path padTemplate = m_app.DataPath() / "pad-template.xml";
    if (!FileExists(padTemplate)) {
        Missing("Data/pad-template.xml");
        return;
    }
    const ProjectSettings &s = Settings();
    const auto orDescription = [&](const std::string &text) {
        return IsBlank(text) ? s.myprojectdescription : text;
    };
    PadValues values{s.myprojectname,
                     m_options.today.ok()
                         ? m_options.today
                         : std::chrono::year_month_day(
                               std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now())),
                     m_options.cost,
                     m_result.sizeTotal,
                     IsBlank(s.myprojectkeywords) ? std::string("hacking, hackers") : s.myprojectkeywords,
                     orDescription(s.myprojectdescriptionshort),
                     orDescription(s.myprojectdescriptionmedium),
                     orDescription(s.myprojectdescriptionlong)};
    WriteTextFile(m_root.parent_path() / (stem + ".xml"),
                  ReplacePadVars(ReadTextFile(padTemplate), values));
}

// What the build wrote, what was left in Res/ and what was in the folder before it.
void Builder::Report() {
    std::error_code error;
    for (const std::string &file : m_written) {
        const std::uint64_t size = fs::file_size(m_root / file, error);
        m_result.written.emplace_back(file, error ? 0 : size);
    }
    std::set<std::string> shippedMedia;
    for (const std::string &file : m_written)
        if (file.starts_with("Res/")) shippedMedia.insert(LowerCase(file));
    for (std::string_view folder : {"uimages", "mp3", "toolstyle"})
        for (fs::directory_iterator it(m_app.ResPath() / folder, error), end; !error && it != end;
             it.increment(error)) {
            const std::string file = "Res/" + std::string(folder) + "/" + it->path().filename().string();
            if (it->is_regular_file(error) && !shippedMedia.contains(LowerCase(file)))
                m_result.unnamed.push_back(file);
        }
    std::sort(m_result.unnamed.begin(), m_result.unnamed.end());
    for (fs::recursive_directory_iterator it(m_root, error), end; !error && it != end; it.increment(error)) {
        if (!it->is_regular_file(error)) continue;
        m_result.folderSize += it->file_size(error);
        const std::string file = fs::relative(it->path(), m_root, error).generic_string();
        if (!m_written.contains(file)) m_result.notWritten.push_back(file);
    }
    std::sort(m_result.notWritten.begin(), m_result.notWritten.end());
    const auto projectFile = m_app.ProjectFile(Settings().myprojectname);
    const std::vector<std::string> report =
        BuildReport(m_result, projectFile ? ReadFileBytes(*projectFile).value_or("") : std::string());
    std::string text;
    for (const std::string &line : report) {
        Say(line);
        text += line + "\r\n";
    }
    if (WriteTextFile(m_root.parent_path() / "build-report.txt", text)) Say("Writing file: build-report.txt");
}

void Builder::Run() {
    const ProjectSettings &s = Settings();
    const auto projectFolder = m_app.ProjectPath(s.myprojectname);
    if (!projectFolder) {
        m_result.error = "\"" + s.myprojectname + "\" names no project folder";
        return;
    }
    m_folder = projectFolder->filename().string();
    // Absolute and without a closing separator, so that what stands beside it is beside it.
    m_root = (fs::absolute(m_options.out.empty() ? *projectFolder / "Distro" : m_options.out))
                 .lexically_normal();
    if (!m_root.has_filename()) m_root = m_root.parent_path();
    // The run-time stands beside the game's own folders under the project's folder name.
    for (const char *taken : {"data", "res", "fonts", "saved", "lib", "plugins"})
        if (LowerCase(m_folder) == taken) {
            m_result.error = "a project named \"" + s.myprojectname +
                             "\" would put its run-time in place of a folder of the game: rename it";
            return;
        }
    m_result.root = m_root;
    m_result.sizeTotal = kBaseSize;

    Say("Starting...");
    std::error_code error;
    if (m_options.clean && fs::exists(m_root, error)) {
        if (const std::string refusal = CannotClean(m_root, m_app, m_folder); !refusal.empty()) {
            m_result.error = refusal;
            return;
        }
        fs::remove_all(m_root, error);
    }
    const AppPaths game(m_root);
    if (!game.MakeProjectFolders(s.myprojectname)) {
        m_result.error = m_root.string() + ": cannot make the game's folders";
        return;
    }
    // The files the run-time reads whatever the project: its word lists and its tool chrome.
    const std::vector<std::string> lacking = CopyStock(m_app, game);
    for (const std::string &stock : lacking) Missing(stock);
    for (const std::string &stock : StockFiles())
        if (std::find(lacking.begin(), lacking.end(), stock) == lacking.end()) Wrote(m_root / stock);
    if (!CopyProjectFile()) return;

    CopyMedia("Copying file: ", "uimages", s.mymenubackground);
    CopyMedia("Copying file: ", "uimages", s.mygamebackground);
    CopyMedia("Copying file: ", "uimages", s.mycreditsbackground);
    for (const MenuImage &image : m_model.menuImages) CopyMedia("Copying file: ", "uimages", image.file);
    CopyMedia("Copying file: ", "uimages", s.mytoolslockfile);
    CopyMedia("Copying file: ", "uimages", s.mytoolsiconfile);
    CopyRunTime();
    if (!GenerateWorld()) return;

    CopyMedia("Copying file: ", "mp3", s.mymenucreditstrack, true);
    CopyMedia("Copying file: ", "mp3", s.mymenump3track, true);
    for (std::int16_t i = 1; i <= 25; ++i)
        CopyMedia("Copying file: ", "mp3", FieldBy(s.mygamemp3tracks, i, "`"), true);
    for (const ElementRow &row : m_model.ElementTable)
        if (NormTextContains(row[kNameColumn], "image"))
            CopyMedia("Copying image file: ", "uimages", NormText(PropertyValue(row, "datafield").value_or("")));
    CopyMedia("Copying file: ", "toolstyle", s.mytoolsimagebg);
    CopyMedia("Copying file: ", "toolstyle", s.mytoolsimagestretcher);
    if (s.myimagemenu) {
        Say("Copying menu image files: (unspecified)");
        for (const std::string *file :
             {&s.myimnewgame, &s.myimloadgame, &s.myimoptions, &s.myimhighscores, &s.myimopenwebsite,
              &s.myimcredits, &s.myimhelp, &s.myimexitgame, &s.myimnewgames, &s.myimloadgames,
              &s.myimoptionss, &s.myimhighscoress, &s.myimopenwebsites, &s.myimcreditss,
              &s.myimhelps, &s.myimexitgames})
            CopyMedia("Copying file: ", "uimages", *file);
    }
    CopyMediaOfStatements();
    if (m_midi) CopySoundFont();
    for (const std::string &dynamic : m_model.DynamicTable)
        if (NormTextContains(dynamic, "image"))
            CopyMedia("Copying file: ", "uimages", FieldAt(dynamic, 7));
    for (std::int16_t i = 1; i <= 250; ++i)
        CopyMedia("Copying file (from Imagebase): ", "uimages", FieldBy(s.myprojectimages, i, "`"));
    WriteReadme();
    CopyFonts();
    if (m_options.pad) WritePad();
    Report();
    Say("Done!");
    m_result.done = true;
}

} // namespace

fs::path RunTimeProgram(const AppPaths &tree) {
    std::error_code error;
    const fs::path own = tree.DataPath() / "runner";
    if (fs::exists(own, error)) return own;
    return fs::read_symlink("/proc/self/exe", error).parent_path() / "Data" / "runner";
}

DistributionResult BuildDistribution(const ProjectModel &model, const AppPaths &app,
                                     const DistributionOptions &options) {
    DistributionResult result;
    Builder(model, app, options, result).Run();
    return result;
}

std::vector<std::string> BuildReport(const DistributionResult &result, std::string_view projectText) {
    const std::vector<std::string_view> lines = SplitLines(projectText);
    // The first line of the project file that names the file, case aside.
    const auto lineOf = [&lines](const std::string &missing) {
        const std::string name = LowerCase(missing.starts_with("font ")
                                               ? missing.substr(5)
                                               : LeafName(ReplaceAll(missing, "/", "\\")));
        for (std::size_t i = 0; i < lines.size(); ++i)
            if (LowerCase(lines[i]).find(name) != std::string::npos) return IntText(static_cast<std::int64_t>(i + 1));
        return std::string();
    };
    std::vector<std::string> report{"BUILD REPORT", "Written:"};
    for (const auto &[file, size] : result.written)
        report.push_back("  " + Utf8ToCp1252(file) + " (" + IntText(static_cast<std::int64_t>(size)) + " bytes)");
    const auto none = [&report](bool empty) {
        if (empty) report.push_back("  none");
    };
    none(result.written.empty());
    report.push_back("Named by the project but missing:");
    for (const std::string &missing : result.missing) {
        const std::string line = lineOf(missing);
        report.push_back("  " + missing + (line.empty() ? "" : " (named on line " + line + " of settings.dat)"));
    }
    none(result.missing.empty());
    report.push_back("In Res/ but named by nothing, so not shipped:");
    for (const std::string &file : result.unnamed) report.push_back("  " + Utf8ToCp1252(file));
    none(result.unnamed.empty());
    report.push_back("In the folder but not written by this build:");
    for (const std::string &file : result.notWritten) report.push_back("  " + Utf8ToCp1252(file));
    none(result.notWritten.empty());
    report.push_back("Total size: " + IntText(static_cast<std::int64_t>(result.folderSize)) + " bytes");
    return report;
}

std::vector<std::string> RequiredFonts(std::string_view projectText) {
    std::vector<std::string> fonts;
    const auto add = [&fonts](std::string name) {
        name = Trim(name);
        const std::string lower = LowerCase(name);
        if (name.empty() || std::any_of(kStandardFonts.begin(), kStandardFonts.end(),
                                        [&](std::string_view font) { return lower.find(font) != std::string::npos; }))
            return;
        if (std::none_of(fonts.begin(), fonts.end(),
                         [&](const std::string &known) { return LowerCase(known) == lower; }))
            fonts.push_back(std::move(name));
    };
    ForEachLine(projectText, [&](std::string_view line) {
        const std::string lower = LowerCase(line);
        if (const std::size_t at = lower.find("fontname:"); at != std::string::npos) {
            const std::string_view rest = line.substr(at + 9);
            add(IsNumeric(FieldAt(rest, 1)) ? FieldAt(rest, 2) : std::string(rest));
        } else if (lower.find("menudynamic:textflow:") != std::string::npos) {
            const std::string field = FieldAt(line, 9);
            add(IsNumeric(field) ? FieldAt(line, 10) : field);
        } else if (lower.starts_with("mymenufont:")) {
            add(FieldAt(line, 2));
        }
    });
    return fonts;
}

std::string PadFileStem(std::string_view projectName) {
    return ReplaceAll(NormText(StripPunctuation(projectName)), " ", "_");
}

std::string ReplacePadVars(std::string_view padTemplate, const PadValues &v) {
    char megabytes[32];
    std::snprintf(megabytes, sizeof megabytes, "%.2f", static_cast<double>(v.sizeBytes) / 1048576.0);
    char kilobytes[32];
    std::snprintf(kilobytes, sizeof kilobytes, "%03llu",
                  static_cast<unsigned long long>(v.sizeBytes / 1024));
    const std::string stem = PadFileStem(v.projectName);
    const auto cut = [&](std::size_t length) { return v.description250.substr(0, length); };
    // Longer names first, so that "$pad-description450" is not taken for "$pad-description45".
    const std::pair<std::string_view, std::string> variables[] = {
        {"$pad-projectname", ReplaceAll(v.projectName, " ", "_")},
        {"$pad-releaseday", TwoDigits(static_cast<unsigned>(v.released.day()))},
        {"$pad-releasemonth", TwoDigits(static_cast<unsigned>(v.released.month()))},
        {"$pad-releaseyear", IntText(static_cast<int>(v.released.year()))},
        {"$pad-cost", Trim(ReplaceAll(v.cost, "$", ""))},
        {"$pad-sizebytes", IntText(static_cast<std::int64_t>(v.sizeBytes))},
        {"$pad-sizekilobytes", kilobytes},
        {"$pad-sizemegabytes", megabytes},
        {"$pad-padfilename", stem + ".xml"},
        {"$pad-installerexe", stem + "_d.msi"},
        {"$pad-keywords", v.keywords},
        {"$pad-description2000", v.description2000},
        {"$pad-description450", cut(450)},
        {"$pad-description250", cut(250)},
        {"$pad-description80", cut(80)},
        {"$pad-description45", v.description45},
    };
    std::string text(padTemplate);
    for (const auto &[name, value] : variables) text = ReplaceAll(text, name, value);
    return text;
}


} // namespace orrery
