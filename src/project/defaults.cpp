// The values of a new project: the vocabulary a game plays with when it changes nothing.
#include "project/defaults.h"

#include "foundation/convert.h"
#include "foundation/text.h"
#include "project/saver.h"

#include <system_error>

namespace orrery {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kKeywords = "digital//hack//hacking//hacker//blind//private//autople//"
                                       "testfile//xdm//flyer//restricted//classification//"
                                       "archive//banksim//phonage//";

constexpr std::string_view kHelpTopics[] = {
    "Welcome:Welcome to $myprojectname!////To browse the available help information, select a "
    "topic from the list on the left.////Good luck!",
    "Quicklist:The quicklist tool allows you to quickly store and use small amounts of data like "
    "target server IP addresses or hostnames.////To add a target to the quicklist, simply right "
    "click on the IP address or hostname when you see it appear in any tool. From the small menu "
    "that appears, select 'Add to Quicklist'.////You can later retrieve this data by first "
    "clicking on the desired destination text box, and then clicking on the quicklist directly. "
    "This will cause the quicklist text to be automatically inserted into the desired "
    "field.////You can also use the mouse to highlight a specific part of the text, or to "
    "highlight a server amongst a lot of text, and then right click to add the selected item to "
    "the quicklist.",
    "Visibility:Press [F1] to hide or show help.//Press [F9] to hide or show the top menu.//Press "
    "[F10] to hide or show the quicklist.//Press [F11] to hide or show the time box.",
};

constexpr std::string_view kServices[] = {
    "HTTP(80)=Connector=//none",      "CRACKER(79)=Password Cracker=//none",
    "FILES(43)=File Manager=//none",  "MAIL(25)=Mail System=//none",
    "CONSOLE(50)=Console=//none",     "NETWORK(22)=Network Tool=//none",
    "ADMIN(140)=Site Controller=//none", "INFO(151)=Information=//none",
    "HYPERQUBE(333)=Hyperqube=//none",
};

constexpr std::string_view kTools[] = {
    "Connector",    "Console",      "Hyperqube",   "Mail System",     "Password Cracker",
    "File Manager", "Network Tool", "Information", "Site Controller",
};

void SetMenuDefaults(ProjectSettings &s) {
    s.mymenustringnew = "New Game";
    s.mymenustringload = "Load Game";
    s.mymenustringoptions = "Options";
    s.mymenustringexit = "Exit Game";
    s.mymenubackground = "bg-default.bmp";
    s.mygamebackground = "vbz-def.bmp";
    s.mymenuboxleft = 3000;
    s.mymenuboxtop = 2000;
    s.mymenubackcolor = 0;
    s.mymenuforecolor = 0xFFFFFF;
    s.mymenuselbackcolor = 0xFFFFFF;
    s.mymenuselforecolor = 0;
    s.mymenubordercolor = 0xFFFFFF;
    s.mymenuborderwidth = 3;
    s.mymenufontsize = 14;
    s.mymenufont = "Verdana";
    s.myforcecentermenu = s.mymenucenter = s.mymenuborder = s.mymenubold = true;
    s.mytopmenu = "File//-Exit=exit//Edit//-Cut=cut//-Copy=copy//-Paste=paste";
    s.mytopmenuforecolor = 0;
    s.mytopmenubackcolor = 0xFFFFFF;
    s.mytopmenuforecolorsel = 0;
    s.mytopmenubackcolorsel = 0xD9038;
}

void SetDesktopDefaults(ProjectSettings &s) {
    s.helpon = s.myqlist = s.myqisbold = s.myclock = true;
    s.myqselcolor = 0x7E715F;
    s.myqlistbordercolor = 0x7E715F;
    s.myqlistbackcolor = 0x5C5245;
    s.myqfontname = "Verdana";
    s.myqforecolor = 0xFFFFFF;
    s.myqfontsize = 8;
    s.myserversrandom = "5000";
    s.mysidemenucaption = "Tools";
    s.mytoolsmenusidemenu = s.mytoolsmenutopmenu = true;
}

void SetToolDefaults(ProjectSettings &s) {
    s.mytoolslockfile = "locked.bmp";
    s.mytoolstitleleft = 600;
    s.mytoolstitletop = 120;
    s.mytoolsdividerleft = 2400;
    s.mytoolsminreverseleft = 870;
    s.mytoolsmintop = 0;
    s.mytoolsexitreverseleft = 415;
    s.mytoolsexittop = 0;
    s.mytoolsimagebg = "tool-default.bmp";
    s.mytoolsimagestretcher = "tool-default-s.bmp";
    s.mytoolsbackcolor = 0;
    s.mytoolsborder = true;
    s.mytoolsborderwidth = 1;
    s.mytoolsbordercolor = 0x804000;
    s.mytoolsmfontname = "Verdana";
    s.mytoolsmfontsize = 12;
    s.mytoolsmforecolor = 0xFFFFFF;
    s.mytoolsmbackcolor = 0;
    s.mytoolsmbold = true;
}

void SetElementStyleDefaults(ProjectSettings &s) {
    s.mtdefstylelistfontname = s.mtdefstyleqonsolefontname = s.mtdefstylelabelfontname =
        s.mtdefstyletextfontname = s.mtdefstylebuttonfontname = "Verdana";
    s.mtdefstylelistfontsize = s.mtdefstyleqonsolefontsize = s.mtdefstylelabelfontsize =
        s.mtdefstyletextfontsize = s.mtdefstylebuttonfontsize = 10;
    s.mtdefstylelistbold = s.mtdefstyleqonsolebold = s.mtdefstylelabelbold =
        s.mtdefstyletextbold = s.mtdefstylebuttonbold = true;
    s.mtdefstylelistforecolor = 0;
    s.mtdefstylelistbackcolor = 0x9ABAB5;
    s.mtdefstyleqonsoleforecolor = 0xFFFFFF;
    s.mtdefstyleqonsolebackcolor = 0x404040;
    s.mtdefstylelabelforecolor = 0xFFFFFF;
    s.mtdefstylelabelbackcolor = 0;
    s.mtdefstylelabelalignment = 0;
    s.mtdefstyletextforecolor = 0xFFFFFF;
    s.mtdefstyletextbackcolor = 0x67613A;
    s.mtdefstyletextalignment = 0;
    s.mtdefstylebuttonforecolor = 0;
    s.mtdefstylebuttonbackcolor = 0xE4BE8F;
    s.mtdefstylebuttonbackcolor2 = 0xE4BE8F;
    s.mtdefstylebuttonalignment = 0;
}

void SetCreditsDefaults(ProjectSettings &s) {
    s.mycredits = "[" + s.myprojectname + "]//Credits";
    s.mycreditsfontname = "Verdana";
    s.mycreditsfontsize = 24;
    s.mycreditsforecolor = 0;
    s.mycreditsbold = true;
}

} // namespace

void SetProjectDefaults(ProjectModel &model, const NewProjectInfo &info, const HostScreen &screen) {
    ProjectSettings &s = model.settings;
    s = ProjectSettings{};
    s.myprojectname = Trim(info.name);
    s.myprojectauthor = Trim(info.author);
    s.myprojectwebsite = Trim(info.website);
    s.myprojectemail = Trim(info.email);
    s.myprojectdescription = ReplaceAll(Trim(info.description), "/crlf/", "\r\n");
    s.originwidth = IntText(screen.widthTwips);
    s.originheight = IntText(screen.heightTwips);
    s.mymenufullwidth = screen.widthTwips;
    s.mymenufullheight = screen.heightTwips;
    s.qkeywords = ReplaceAll(kKeywords, "//", "\r\n");
    SetMenuDefaults(s);
    SetDesktopDefaults(s);
    SetToolDefaults(s);
    SetElementStyleDefaults(s);
    SetCreditsDefaults(s);

    model.ServerFieldTable[1] = "IP (RANDOM:IP)";
    model.ServerFieldTable[2] = "HOSTNAME (RANDOM:HOSTNAME)";
    model.ServerFieldTable[3] = "ADMIN (RANDOM:PERSON)";
    model.VariableTable[1] = {"$score", "500"};
    model.VariableTable[2] = {"$player", "Player1"};
    int slot = 0;
    for (std::string_view topic : kHelpTopics) model.HelpTable[++slot] = std::string(topic);
}

void AddStandardServicesAndTools(ProjectModel &model) {
    int slot = 0;
    for (std::string_view service : kServices) model.ServiceTable[++slot] = std::string(service);
    slot = 0;
    for (std::string_view tool : kTools) model.ToolNameTable[++slot] = std::string(tool);
}

const std::vector<std::string> &StockFiles() {
    static const std::vector<std::string> files{
        "Data/names.dat",          "Data/words.dat",
        "Res/uimages/bg-default.bmp", "Res/uimages/vbz-def.bmp",
        "Res/uimages/locked.bmp",  "Res/toolstyle/tool-default.bmp",
        "Res/toolstyle/tool-default-s.bmp", "Res/toolstyle/imleft.bmp",
        "Res/toolstyle/immid.bmp"};
    return files;
}

std::vector<std::string> CopyStock(const AppPaths &from, const AppPaths &to) {
    std::vector<std::string> missing;
    for (const std::string &file : StockFiles()) {
        std::error_code error;
        const fs::path target = to.Root() / file;
        if (fs::is_regular_file(target, error)) continue;
        fs::create_directories(target.parent_path(), error);
        if (!fs::copy_file(from.Root() / file, target, fs::copy_options::skip_existing, error))
            missing.push_back(file);
    }
    return missing;
}

CreateResult CreateProject(ProjectModel &model, const AppPaths &paths, const NewProjectInfo &info,
                           const HostScreen &screen, const AppPaths *stock) {
    CreateResult result;
    if (IsBlank(info.name) || IsBlank(info.author)) {
        result.message = kMissingNameOrAuthor;
        return result;
    }
    if (const std::string problem = NameProblem(info.name, NameKind::Project); !problem.empty()) {
        result.message = UnusableName(info.name, NameKind::Project, problem);
        return result;
    }
    if (paths.ProjectExists(info.name)) {
        result.message = kProjectAlreadyExists;
        return result;
    }
    std::error_code error;
    const bool folderWasThere = fs::exists(*paths.ProjectPath(info.name), error);
    if (!paths.MakeProjectFolders(info.name)) {
        result.message = "Cannot make the folders of the project below " + paths.Root().string() + ".";
        return result;
    }
    SetProjectDefaults(model, info, screen);
    AddStandardServicesAndTools(model);
    const SaveResult saved = SaveProject(model, paths, "", 1);
    result.created = saved.status == SaveStatus::Saved;
    if (result.created) {
        if (stock) result.missingStock = CopyStock(*stock, paths);
        return result;
    }
    result.message = saved.error;
    // A project that couldn't be written leaves no empty folder of its name behind.
    if (!folderWasThere) fs::remove(*paths.ProjectPath(info.name), error);
    return result;
}

} // namespace orrery
