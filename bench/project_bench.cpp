// The project file's reading and writing at its largest, each measured against a floor taken
// in the same run: the raw read of the same bytes for a load, the raw durable write of the
// same bytes for a save. The ratios are printed at the end.
#include "foundation/convert.h"
#include "foundation/paths.h"
#include "foundation/random.h"
#include "foundation/scramble.h"
#include "foundation/textfile.h"
#include "project/loader.h"
#include "project/saver.h"

#include <benchmark/benchmark.h>

#include "ratios.h"

#include <memory>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace orrery {
namespace {

constexpr std::string_view kProjectName = "Bench Game";
constexpr std::string_view kScrambledName = "Bench Game Scrambled";

std::string Num(int n) {
    return IntText(n);
}

// Every table full, every element with all its properties, texts of the length a real game
// has: the largest file a project can be.
ProjectModel MakeLargestModel() {
    ProjectModel m;
    ProjectSettings &s = m.settings;
    s.myprojectname = std::string(kProjectName);
    s.myprojectauthor = "The Orrery Bench Team";
    s.myprojectwebsite = "www.bench.example";
    s.myprojectdescription = "A game that fills every table\r\nto see how long its file takes";
    s.mytopmenu = "File//-New=new//-Open=open//-Exit=exit//Help//-About=about";

    static constexpr std::string_view kTypes[] = {"button", "label",   "text", "list",
                                                  "image",  "qonsole", "frame"};
    for (int row = 1; row <= kElementRows; ++row) {
        ElementRow &e = m.Element(row);
        const std::string n = Num(row);
        e[0] = "node " + n;
        e[1] = "atool:connector tool " + Num(row % 99 + 1);
        e[2] = std::string(kTypes[row % 7]) + ":" + n;
        e[3] = "fontname:Lucida Console";
        e[4] = "fontsize:10";
        e[5] = "forecolor:16777215";
        e[6] = "backcolor:" + Num(row * 97);
        e[7] = "caption:Scan the subnet behind gateway " + n + " for open ports";
        e[8] = "left:" + Num(120 + row);
        e[9] = "top:" + Num(3400 - row);
        e[10] = "width:2400";
        e[11] = "height:480";
        e[12] = "tag:node" + n;
        e[13] = "tooltip:Click to run the port scanner on the selected host";
        e[14] = "bold:True";
        e[15] = "italic:False";
        e[16] = "underline:False";
        e[17] = "alignment:2";
        e[18] = "visible:True";
        e[19] = "datafield:$target_" + n;
        e[20] = "action:RUN=scan " + n + "//MESSAGE=done";
        e[21] = "onfocus:PLAY=beep.wav//WAIT=200";
    }
    for (int i = 1; i <= 2000; ++i)
        m.VariableTable[i] = {"$agent_variable_" + Num(i), "value of variable number " + Num(i)};
    for (int i = 1; i <= 99; ++i) {
        const std::string n = Num(i);
        m.ToolNameTable[i] = "Connector Tool " + n;
        m.ServiceTable[i] = "HTTP(" + Num(8000 + i) + ")=Connector=//none";
        m.HelpTable[i] = "Topic " + n + ":How to break into a server//Press F1 for more";
        m.DynamicTable[i] = "menudynamic:image:logo" + n + ".bmp:" + Num(10 * i) + ":10";
        m.QuantumLockTable[i] = "lock" + n + ":" + Num(100 + i) + ":200";
        MenuLabel &label = m.MenuLabelTable[i];
        label.caption = "Welcome, agent " + n;
        label.tag = "label" + n;
        label.dataField = "NEW:go" + n;
        label.left = 500 + i;
        label.top = 700 + i;
        label.foreColor = 255;
        label.backColor = 65280;
        label.backStyle = 1;
        label.bold = true;
        label.fontSize = "12";
        label.fontName = "Courier New";
    }
    for (int i = 1; i <= 199; ++i)
        m.QlobTable[i] = "scanner" + Num(i) + ":RUN=scan//MESSAGE=done with scanner " + Num(i);
    for (int i = 1; i <= 500; ++i)
        m.CustomServerTable[i] = "10.0." + Num(i / 256) + "." + Num(i % 256) + ":host" + Num(i) +
                                 ".bench.example:Admin " + Num(i);
    for (int i = 1; i <= 299; ++i)
        m.ToolSubTable[i] = {"connector tool " + Num(i % 99 + 1) + ":open" + Num(i),
                             "RUN=hello " + Num(i) + "//MESSAGE=opened"};
    for (int i = 1; i <= 250; ++i) m.ServerFieldTable[i] = "FIELD" + Num(i) + " (RANDOM:IP)";
    for (int i = 1; i <= 50; ++i)
        m.menuImages.push_back(MenuImage{"menu" + Num(i) + ".bmp", 10 * i, 20 * i, "NEW:go"});
    return m;
}

// The application folder of the run, its project file and everything the benchmarks share.
struct Setup {
    std::filesystem::path root;
    std::optional<AppPaths> paths;
    std::filesystem::path file;
    std::filesystem::path scrambledFile;
    std::string bytes;          // the project file
    std::string scrambledBytes; // the same, scrambled line by line
    std::size_t lines = 0;
    std::size_t scrambledLines = 0;
    ProjectModel model; // as loaded from the file: what the save benchmark writes
};

Setup *g_setup = nullptr;

bool Prepare(Setup &s) {
    std::string pattern = (std::filesystem::temp_directory_path() / "orrery-bench-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) return false;
    s.root = pattern;
    s.paths.emplace(s.root);
    // A save of the made model, loaded as a session would: the loaded model saves the very
    // bytes it was read from.
    ProjectModel made = MakeLargestModel();
    if (SaveProject(made, *s.paths, "", 1).status != SaveStatus::Saved) return false;
    s.file = *s.paths->ProjectFile(kProjectName);
    if (!LoadProject(s.model, *s.paths, kProjectName).found) return false;
    if (SaveProject(s.model, *s.paths, "", 1).status != SaveStatus::Saved) return false;
    s.bytes = ReadFileBytes(s.file).value_or("");
    s.lines = SplitLines(s.bytes).size();
    if (BuildProjectText(s.model) + "\r\n" != s.bytes) {
        std::fprintf(stderr, "orrery_bench: the loaded model doesn't save its own bytes\n");
        return false;
    }

    Random random(20);
    s.scrambledBytes = "[revise]\r\n";
    for (std::string_view line : SplitLines(s.bytes))
        s.scrambledBytes += ScrambleText(line, random) + "\r\n";
    s.scrambledLines = SplitLines(s.scrambledBytes).size();
    if (!s.paths->MakeProjectDir(kScrambledName)) return false;
    s.scrambledFile = *s.paths->ProjectFile(kScrambledName);
    return ReplaceFileAtomically(s.scrambledFile, s.scrambledBytes);
}

void ReadAndSplit(benchmark::State &state, const std::filesystem::path &file, std::size_t lines) {
    for (auto _ : state) {
        const std::optional<std::string> bytes = ReadFileBytes(file);
        const std::vector<std::string_view> split =
            SplitLines(bytes ? std::string_view(*bytes) : std::string_view());
        benchmark::DoNotOptimize(split.data());
        if (split.size() != lines) state.SkipWithError("the file changed");
    }
    state.SetBytesProcessed(state.iterations() *
                            static_cast<std::int64_t>(std::filesystem::file_size(file)));
}

// The program's model exists from its start and outlives the load, so making a blank model and
// freeing it afterwards stay outside the time measured.
void Load(benchmark::State &state, std::string_view name, std::size_t lines) {
    const Setup &s = *g_setup;
    for (auto _ : state) {
        state.PauseTiming();
        auto model = std::make_unique<ProjectModel>();
        state.ResumeTiming();
        const LoadReport report = LoadProject(*model, *s.paths, name);
        benchmark::DoNotOptimize(model->elementCount);
        state.PauseTiming();
        model.reset();
        state.ResumeTiming();
        if (report.lines != lines) state.SkipWithError("the file didn't load whole");
    }
}

void BM_RawReadAndSplit(benchmark::State &state) {
    ReadAndSplit(state, g_setup->file, g_setup->lines);
}

void BM_LoadProject(benchmark::State &state) {
    Load(state, kProjectName, g_setup->lines);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(g_setup->bytes.size()));
}

void BM_RawReadAndSplitScrambled(benchmark::State &state) {
    ReadAndSplit(state, g_setup->scrambledFile, g_setup->scrambledLines);
}

void BM_LoadScrambled(benchmark::State &state) {
    Load(state, kScrambledName, g_setup->scrambledLines);
    state.SetBytesProcessed(state.iterations() *
                            static_cast<std::int64_t>(g_setup->scrambledBytes.size()));
}

void BM_RawWrite(benchmark::State &state) {
    const Setup &s = *g_setup;
    for (auto _ : state)
        if (!ReplaceFileAtomically(s.file, s.bytes)) state.SkipWithError("cannot write");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(s.bytes.size()));
}

void BM_SaveProject(benchmark::State &state) {
    Setup &s = *g_setup;
    for (auto _ : state)
        if (SaveProject(s.model, *s.paths, "", 1).status != SaveStatus::Saved)
            state.SkipWithError("cannot save");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(s.bytes.size()));
}

void BM_CopyBytes(benchmark::State &state) {
    const Setup &s = *g_setup;
    for (auto _ : state) {
        std::string copy = s.bytes;
        benchmark::DoNotOptimize(copy.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(s.bytes.size()));
}

void BM_BuildProjectText(benchmark::State &state) {
    Setup &s = *g_setup;
    for (auto _ : state) {
        std::string text = BuildProjectText(s.model);
        benchmark::DoNotOptimize(text.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(s.bytes.size()));
}

BENCHMARK(BM_RawReadAndSplit)->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK(BM_LoadProject)->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK(BM_RawReadAndSplitScrambled)->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK(BM_LoadScrambled)->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK(BM_RawWrite)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_SaveProject)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_CopyBytes)->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK(BM_BuildProjectText)->Unit(benchmark::kMillisecond)->MinTime(0.5);

} // namespace
} // namespace orrery

int main(int argc, char **argv) {
    using namespace orrery;
    const auto options = InitializeBenchmarks(argc, argv);
    if (!options) return 1;

    Setup setup;
    g_setup = &setup;
    const bool ready = Prepare(setup);
    int status = 0;
    if (ready) {
        std::printf("project file: %zu bytes, %zu lines; scrambled: %zu bytes\n",
                    setup.bytes.size(), setup.lines, setup.scrambledBytes.size());
        TimeKeepingReporter reporter(*options);
        benchmark::RunSpecifiedBenchmarks(&reporter);
        std::printf("\n");
        PrintRatio(reporter, "load / (raw read + split lines)", "BM_LoadProject",
                   "BM_RawReadAndSplit", 3);
        PrintRatio(reporter, "save / raw durable write", "BM_SaveProject", "BM_RawWrite", 2);
        PrintRatio(reporter, "scrambled load / (raw read + split lines)", "BM_LoadScrambled",
                   "BM_RawReadAndSplitScrambled", 0);
        PrintRatio(reporter, "build text / copy of the bytes", "BM_BuildProjectText",
                   "BM_CopyBytes", 0);
    } else {
        std::fprintf(stderr, "orrery_bench: cannot prepare the project file in %s\n",
                     setup.root.c_str());
        status = 1;
    }
    std::error_code ignored;
    if (!setup.root.empty()) std::filesystem::remove_all(setup.root, ignored);
    g_setup = nullptr;
    benchmark::Shutdown();
    return status;
}
