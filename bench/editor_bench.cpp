// The editor's benchmarks, each beside a floor taken in the same run: opening the largest
// project to the hub against loading its model alone; a step (AddTool) with its save against
// the raw durable write of the same bytes; 1,000 undos and 1,000 redos through the undo stack,
// each saved, against 2,000 raw durable writes of the same file; the Problems panel's refresh
// after a step on the largest project, against the step and its save.
#include "editor/qt/changecommand.h"
#include "editor/qt/editorframe.h"
#include "editor/qt/hub.h"
#include "editor/qt/problemspanel.h"
#include "editor/sequences.h"
#include "editor/session.h"
#include "editor/tools.h"
#include "foundation/textfile.h"
#include "largest_project.h"
#include "project/loader.h"
#include "ratios.h"

#include <QApplication>
#include <QUndoStack>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace orrery {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kLargestName = "Bench Game";
constexpr std::string_view kSmallName = "Undo Game";
constexpr int kSteps = 1000;

struct Setup {
    fs::path root;
    std::optional<AppPaths> paths;
    std::size_t lines = 0;  // of the largest file
    std::string withTool;   // the largest file with the tool AddTool makes
    std::string smallBytes;       // a new project's file, before the steps
    std::unique_ptr<EditorSession> small; // the new project, with its steps on the stack
    std::unique_ptr<QUndoStack> stack;
};

Setup *g_setup = nullptr;

// The largest project with one free tool slot, for AddTool; and a new project with 1,000
// steps made on it and kept on an undo stack.
bool Prepare(Setup &s) {
    s.root = MakeBenchFolder();
    if (s.root.empty()) return false;
    s.paths.emplace(s.root);
    ProjectModel largest = MakeLargestModel(kLargestName);
    largest.ToolNameTable[99].clear();
    if (SaveProject(largest, *s.paths, "", 1).status != SaveStatus::Saved) return false;
    EditorSession session(*s.paths, *s.paths);
    if (session.Open(kLargestName)) return false;
    const Outcome added = AddTool(session.model(), "Scanner");
    if (!session.Apply(added)) return false;
    const fs::path file = *s.paths->ProjectFile(kLargestName);
    s.withTool = ReadFileBytes(file).value_or("");
    session.Undo(added.change);
    s.lines = SplitLines(ReadFileBytes(file).value_or("")).size();

    s.small = std::make_unique<EditorSession>(*s.paths, *s.paths);
    if (s.small->Create({std::string(kSmallName), "Bench", "", "", ""})) return false;
    s.smallBytes = ReadFileBytes(*s.paths->ProjectFile(kSmallName)).value_or("");
    s.stack = std::make_unique<QUndoStack>();
    s.stack->setUndoLimit(0);
    for (int i = 1; i <= kSteps; ++i) {
        Outcome step = SetSetting(s.small->model(), "mymenustringnew", "New Game " + std::to_string(i));
        if (!s.small->Apply(step)) return false;
        s.stack->push(new ChangeCommand(*s.small, std::move(step.change)));
    }
    return true;
}

void BM_LoadModel(benchmark::State &state) {
    const Setup &s = *g_setup;
    for (auto _ : state) {
        auto model = std::make_unique<ProjectModel>();
        const LoadReport report = LoadProject(*model, *s.paths, kLargestName);
        benchmark::DoNotOptimize(model->elementCount);
        state.PauseTiming();
        model.reset();
        state.ResumeTiming();
        if (report.lines != s.lines) state.SkipWithError("the file didn't load whole");
    }
}

// From the frame on screen with the wizard to the hub on screen; the frame is made before
// and thrown away after, without the save that closing it would make.
void BM_OpenToHub(benchmark::State &state) {
    const Setup &s = *g_setup;
    for (auto _ : state) {
        state.PauseTiming();
        auto session = std::make_unique<EditorSession>(*s.paths, *s.paths);
        auto frame = std::make_unique<EditorFrame>(*session);
        frame->show();
        QApplication::processEvents();
        state.ResumeTiming();
        frame->Start(std::string(kLargestName));
        QApplication::processEvents();
        state.PauseTiming();
        if (!frame->hub() || !frame->hub()->isVisible()) state.SkipWithError("no hub");
        frame.reset();
        session.reset();
        state.ResumeTiming();
    }
}

// Beside the project's file, which keeps the project without the tool.
void BM_RawWrite(benchmark::State &state) {
    const Setup &s = *g_setup;
    const fs::path file = s.paths->ProjectFile(kLargestName)->parent_path() / "raw.dat";
    for (auto _ : state)
        if (!ReplaceFileAtomically(file, s.withTool)) state.SkipWithError("cannot write");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(s.withTool.size()));
}

void BM_AddToolAndSave(benchmark::State &state) {
    const Setup &s = *g_setup;
    EditorSession session(*s.paths, *s.paths);
    if (session.Open(kLargestName)) return state.SkipWithError("cannot open");
    for (auto _ : state) {
        const Outcome added = AddTool(session.model(), "Scanner");
        if (!session.Apply(added)) state.SkipWithError("the tool wasn't added");
        state.PauseTiming();
        added.change.Undo(session.model());
        state.ResumeTiming();
    }
    // The next run opens the file without the tool.
    session.Close();
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(s.withTool.size()));
}

// The check the frame makes after a step, with the panel showing its findings: the step
// (AddTool, saved) is made and undone outside the timing.
void BM_ProblemsRefresh(benchmark::State &state) {
    const Setup &s = *g_setup;
    EditorSession session(*s.paths, *s.paths);
    EditorFrame frame(session);
    frame.show();
    frame.Start(std::string(kLargestName));
    QApplication::processEvents();
    if (!session.IsOpen()) return state.SkipWithError("cannot open");
    std::size_t findings = 0;
    for (auto _ : state) {
        state.PauseTiming();
        if (!frame.Apply(AddTool(session.model(), "Scanner"))) state.SkipWithError("no step");
        state.ResumeTiming();
        frame.CheckProject();
        state.PauseTiming();
        findings = frame.problems()->findings().size();
        frame.undoStack()->undo();
        state.ResumeTiming();
    }
    state.counters["findings"] = static_cast<double>(findings);
    frame.undoStack()->clear();
}

void BM_RawWrites2000(benchmark::State &state) {
    const Setup &s = *g_setup;
    const fs::path file = *s.paths->ProjectFile(kSmallName);
    for (auto _ : state)
        for (int i = 0; i < 2 * kSteps; ++i)
            if (!ReplaceFileAtomically(file, s.smallBytes)) state.SkipWithError("cannot write");
}

void BM_UndoRedo1000(benchmark::State &state) {
    Setup &s = *g_setup;
    for (auto _ : state) {
        for (int i = 0; i < kSteps; ++i) s.stack->undo();
        for (int i = 0; i < kSteps; ++i) s.stack->redo();
    }
    if (s.stack->index() != kSteps) state.SkipWithError("the stack didn't come back");
}

BENCHMARK(BM_LoadModel)->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK(BM_OpenToHub)->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK(BM_RawWrite)->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK(BM_AddToolAndSave)->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK(BM_ProblemsRefresh)->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK(BM_RawWrites2000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_UndoRedo1000)->Unit(benchmark::kMillisecond)->Iterations(3);

void Report(const TimeKeepingReporter &times) {
    PrintRatio(times, "open the largest project to the hub / load its model", "BM_OpenToHub",
               "BM_LoadModel", 2);
    PrintRatio(times, "AddTool and its save / raw durable write", "BM_AddToolAndSave",
               "BM_RawWrite", 2);
    // The refresh reads every sequence of the project again, where the step writes its file
    // once: within three times the step keeps the panel behind the author's hand.
    PrintRatio(times, "Problems panel's refresh after a step / the step and its save",
               "BM_ProblemsRefresh", "BM_AddToolAndSave", 3);
    PrintRatio(times, "1,000 undos and redos / 2,000 raw durable writes", "BM_UndoRedo1000",
               "BM_RawWrites2000", 2);
}

} // namespace
} // namespace orrery

int main(int argc, char **argv) {
    using namespace orrery;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    Setup setup;
    g_setup = &setup;
    int status = 1;
    if (Prepare(setup))
        status = RunBenchmarks(argc, argv, Report);
    else
        std::fprintf(stderr, "editor_bench: cannot prepare the projects in %s\n", setup.root.c_str());
    setup.stack.reset();
    std::error_code ignored;
    if (!setup.root.empty()) fs::remove_all(setup.root, ignored);
    g_setup = nullptr;
    return status;
}
