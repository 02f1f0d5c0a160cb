// The largest project: every table full, every element with all its properties.
#include "largest_project.h"

#include "foundation/convert.h"
#include "project/loader.h"
#include "project/saver.h"

#include <memory>
#include <unistd.h>

namespace orrery {

namespace {

std::string Num(int n) {
    return IntText(n);
}

} // namespace

ProjectModel MakeLargestModel(std::string_view name) {
    ProjectModel m;
    ProjectSettings &s = m.settings;
    s.myprojectname = std::string(name);
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

std::filesystem::path MakeBenchFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "orrery-bench-XXXXXX").string();
    return ::mkdtemp(pattern.data()) ? std::filesystem::path(pattern) : std::filesystem::path();
}

std::filesystem::path MakeLargestProjectFolder(std::string_view name) {
    const std::filesystem::path root = MakeBenchFolder();
    ProjectModel made = MakeLargestModel(name);
    if (root.empty() || SaveProject(made, AppPaths(root), "", 1).status != SaveStatus::Saved)
        return {};
    return root;
}

void MeasureLoad(benchmark::State &state, const AppPaths &paths, std::string_view name,
                 std::size_t lines) {
    for (auto _ : state) {
        state.PauseTiming();
        auto model = std::make_unique<ProjectModel>();
        state.ResumeTiming();
        const LoadReport report = LoadProject(*model, paths, name);
        benchmark::DoNotOptimize(model->elementCount);
        state.PauseTiming();
        model.reset();
        state.ResumeTiming();
        if (!report.found || (lines && report.lines != lines))
            state.SkipWithError("the file didn't load whole");
    }
}

} // namespace orrery
