// The run-time's main menu: layout from the project, highlight, keys and choices.
#include "desk/mainmenu.h"

#include "foundation/convert.h"
#include "foundation/text.h"
#include "project/model.h"

#include <algorithm>
#include <array>

namespace orrery {

namespace {

constexpr int kLineMargin = 120;  // above the first line, below the last, left of each line
constexpr int kRealPicture = 480; // an image narrower than this takes no room in the stack

int Rounded(double value) {
    return RoundToInt32(value).value_or(0);
}

} // namespace

int ScaleBy(double value, double design, double actual) {
    if (design <= 0) return Rounded(value);
    const auto scaled = ScaleProduct(value, design, actual);
    return scaled ? *scaled : Rounded(value);
}

namespace {

int BoxScaleX(const MainMenu &menu, double v) {
    return ScaleBy(v, menu.designWidth, menu.form.width);
}
int BoxScaleY(const MainMenu &menu, double v) {
    return ScaleBy(v, menu.designHeight, menu.form.height);
}
int OriginScaleX(const MainMenu &menu, const ProjectModel &project, double v) {
    return ScaleBy(v, Val(project.settings.originwidth), menu.screen.width);
}
int OriginScaleY(const MainMenu &menu, const ProjectModel &project, double v) {
    return ScaleBy(v, Val(project.settings.originheight), menu.screen.height);
}

MenuSize MeasureText(const MenuMeasures &measures, std::string_view caption, const MenuFont &font) {
    return measures.text ? measures.text(caption, font) : MenuSize{};
}

MenuSize MeasurePicture(const MenuMeasures &measures, std::string_view file) {
    if (IsBlank(file) || !measures.picture) return {};
    return measures.picture(Trim(file));
}

MenuRect CenteredOn(MenuSize form, MenuRect box) {
    box.left = form.width / 2 - box.width / 2;
    box.top = form.height / 2 - box.height / 2;
    return box;
}

void LoadFreePictures(MainMenu &menu, const ProjectModel &project, const MenuMeasures &measures) {
    menu.pictures.clear();
    const int count = std::min<int>(kMenuImageRecords, static_cast<int>(project.menuImages.size()));
    for (int i = 0; i < count; ++i) {
        const MenuImage &image = project.menuImages[static_cast<std::size_t>(i)];
        if (IsBlank(image.file)) continue;
        MenuPicture picture{Trim(image.file), {}};
        // The data field carries the position on the origin screen; an image saved without
        // one stays where its own left and top put it.
        if (IsBlank(image.dataField)) {
            picture.rect = {image.left, image.top, 0, 0};
        } else {
            picture.rect.left = OriginScaleX(menu, project, Val(FieldAt(image.dataField, 1)));
            picture.rect.top = OriginScaleY(menu, project, Val(FieldAt(image.dataField, 2)));
        }
        const MenuSize size = MeasurePicture(measures, picture.file);
        picture.rect.width = size.width;
        picture.rect.height = size.height;
        menu.pictures.push_back(std::move(picture));
    }
}

// A label shows only once its data field has placed it. Its caption gets a blank each side.
void LoadFreeLabels(MainMenu &menu, const ProjectModel &project, const MenuMeasures &measures) {
    for (const MenuLabel &source : project.MenuLabelTable) {
        if (IsBlank(source.caption) || IsBlank(source.dataField)) continue;
        MenuFreeLabel label;
        label.caption = " " + Trim(source.caption) + " ";
        label.tag = source.tag;
        label.backColor = source.backColor;
        label.foreColor = source.foreColor;
        label.backStyle = source.backStyle;
        label.font = {source.fontName, 8, source.bold, source.italic, source.underline};
        // A size that scales to nothing keeps the label's own 8 points.
        const int size = BoxScaleX(menu, Val(source.fontSize));
        if (size > 0) label.font.size = size;
        label.rect.left = OriginScaleX(menu, project, Val(FieldAt(source.dataField, 1)));
        label.rect.top = OriginScaleY(menu, project, Val(FieldAt(source.dataField, 2)));
        const MenuSize extent = MeasureText(measures, label.caption, label.font);
        label.rect.width = extent.width;
        label.rect.height = extent.height;
        menu.labels.push_back(std::move(label));
    }
}

// What the keys of the project file give before the menu grows.
void ReadMenuSettings(MainMenu &menu, const ProjectSettings &s) {
    menu.designWidth = s.mymenufullwidth;
    menu.designHeight = s.mymenufullheight;
    menu.backgroundFile = IsBlank(s.mymenubackground) ? "bg-default.bmp" : Trim(s.mymenubackground);
    menu.stringNew = s.mymenustringnew;
    menu.stringLoad = s.mymenustringload;
    menu.stringExit = s.mymenustringexit;
    menu.center = s.mymenucenter;
    menu.boxBackColor = s.mymenubackcolor;
    menu.foreColor = s.mymenuforecolor;
    menu.selBackColor = s.mymenuselbackcolor;
    menu.selForeColor = s.mymenuselforecolor;
    menu.font.size = s.mymenufontsize > 0 ? s.mymenufontsize : 10;
    menu.font.name = IsBlank(s.mymenufont) ? "Verdana" : s.mymenufont;
    menu.font.bold = s.mymenubold;
    menu.font.italic = s.mymenuitalic;
    menu.box.left = BoxScaleX(menu, s.mymenuboxleft);
    menu.box.top = BoxScaleY(menu, s.mymenuboxtop);
}

void SetMenuFont(MainMenu &menu, const ProjectSettings &s) {
    if (!IsBlank(s.mymenufont)) menu.font.name = s.mymenufont;
    // A negative size is refused and the line keeps the size it had.
    if (s.mymenufontsize > 0) {
        const double ratio =
            menu.designWidth > 0 ? static_cast<double>(menu.form.width) / menu.designWidth : 1.0;
        menu.font.size = s.mymenufontsize * ratio;
    }
}

std::vector<std::string> LineCaptions(const ProjectSettings &s) {
    std::vector<std::string> captions{s.mymenustringnew, s.mymenustringload, s.mymenustringoptions};
    if (s.mymenuwebsite) captions.emplace_back("Open Website");
    if (s.mymenucredits) captions.emplace_back("Credits");
    if (s.mymenuhelp) captions.emplace_back("Help");
    captions.push_back(s.mymenustringexit);
    return captions;
}

MenuAction ActionForTag(std::string_view tag) {
    static constexpr std::array<MenuAction, kImageItems> kByTag{
        MenuAction::NewGame, MenuAction::LoadGame, MenuAction::Options, MenuAction::Scores,
        MenuAction::Website, MenuAction::Credits,  MenuAction::Nothing, MenuAction::Exit};
    if (tag.size() != 1 || tag[0] < '1' || tag[0] > '8') return MenuAction::Nothing;
    return kByTag[static_cast<std::size_t>(tag[0] - '1')];
}

bool HasLine(const MainMenu &menu, int index) {
    return index >= 1 && index <= static_cast<int>(menu.lines.size());
}

const MenuLine &Line(const MainMenu &menu, int index) {
    return menu.lines[static_cast<std::size_t>(index - 1)];
}

} // namespace

void RepairMenuSettings(ProjectSettings &s) {
    if (s.mymenufontsize == 0) s.mymenufontsize = 14;
    if (Trim(s.mymenufont) == "0") s.mymenufont = "Verdana";
    if (s.mymenuborderwidth == 0) s.mymenuborderwidth = 1;
}

MainMenu BuildMainMenu(const ProjectModel &project, MenuSize form, MenuSize screen,
                       MenuMeasures measures) {
    // The menu is built from the settings as the repair leaves them, whether or not the
    // owner has repaired its model.
    ProjectSettings s = project.settings;
    RepairMenuSettings(s);
    MainMenu menu;
    menu.form = form;
    menu.screen = screen;
    ReadMenuSettings(menu, s);
    LoadFreeLabels(menu, project, measures);
    LoadFreePictures(menu, project, measures);
    menu.imageMenu = s.myimagemenu;
    if (menu.imageMenu)
        LoadAnImageMenuInstead(menu, s, measures);
    else
        GrowMenu(menu, s, measures);
    if (s.myforcecentermenu) menu.box = CenteredOn(menu.form, menu.box);
    SetAMenuBorder(menu, s);
    SetSel(menu, kNoLine);
    SetSel(menu, 1);
    menu.boxVisible = !menu.imageMenu;
    if (s.mymenutransparent) MakeTransparent(menu);
    menu.picture1 = {360, form.height - kPicture1Size - 360, kPicture1Size, kPicture1Size};
    return menu;
}

void GrowMenu(MainMenu &menu, const ProjectSettings &s, const MenuMeasures &measures) {
    menu.lines.clear();
    SetMenuFont(menu, s);
    int top = kLineMargin;
    int widest = 0;
    for (std::string &caption : LineCaptions(s)) {
        const MenuSize size = MeasureText(measures, caption, menu.font);
        menu.lines.push_back({std::move(caption), {0, top, size.width, size.height}});
        top += size.height;
        widest = std::max(widest, size.width);
    }
    menu.box.height = top + kLineMargin;
    menu.box.width = widest + 2 * kLineMargin;
    if (menu.center)
        CenterMenu(menu);
    else
        UnCenterMenu(menu);
}

void LoadAnImageMenuInstead(MainMenu &menu, const ProjectSettings &s,
                            const MenuMeasures &measures) {
    const std::array<const std::string *, kImageItems> plain{
        &s.myimnewgame,     &s.myimloadgame, &s.myimoptions, &s.myimhighscores,
        &s.myimopenwebsite, &s.myimcredits,  &s.myimhelp,    &s.myimexitgame};
    const std::array<const std::string *, kImageItems> selected{
        &s.myimnewgames,     &s.myimloadgames, &s.myimoptionss, &s.myimhighscoress,
        &s.myimopenwebsites, &s.myimcreditss,  &s.myimhelps,    &s.myimexitgames};
    menu.imageBox.left = BoxScaleX(menu, Val(s.myimleft));
    menu.imageBox.top = BoxScaleY(menu, Val(s.myimtop));
    menu.imageBackColor = s.myimbackcolor;
    menu.images.clear();
    const int spacing = Rounded(Val(s.myimspacing));
    int top = 0;
    for (std::size_t i = 0; i < plain.size(); ++i) {
        ImageMenuItem item{Trim(*plain[i]), Trim(*selected[i]), false, {}};
        const MenuSize size = MeasurePicture(measures, item.plainFile);
        item.hasSelected = MeasurePicture(measures, item.selectedFile).width > 0;
        item.rect = {0, top, size.width, size.height};
        if (size.width > kRealPicture) top += size.height + spacing;
        if (size.width > 0 && size.height > 0) {
            menu.imageBox.width = std::max(menu.imageBox.width, size.width);
            menu.imageBox.height = std::max(menu.imageBox.height, item.rect.top + size.height);
        }
        menu.images.push_back(std::move(item));
    }
    if (s.myforcecentermenu) menu.imageBox = CenteredOn(menu.form, menu.imageBox);
}

// The border frames the text menu; an image menu has no box for it to frame.
void SetAMenuBorder(MainMenu &menu, const ProjectSettings &s) {
    if (!s.mymenuborder || menu.imageMenu) return;
    const int width = s.mymenuborderwidth;
    menu.border.shown = true;
    menu.border.width = std::max(width, 1);
    menu.border.color = s.mymenubordercolor;
    menu.border.rect = {menu.box.left - width * 10 - 5, menu.box.top - width * 10 - 5,
                        menu.box.width + width * 25 + 10, menu.box.height + width * 25 + 10};
}

// The lines keep their places on the form; only the box and the bar behind them go.
void MakeTransparent(MainMenu &menu) {
    menu.transparent = true;
    menu.boxVisible = false;
}

void CenterMenu(MainMenu &menu) {
    for (MenuLine &line : menu.lines) line.rect.left = menu.box.width / 2 - line.rect.width / 2;
}

void UnCenterMenu(MainMenu &menu) {
    for (MenuLine &line : menu.lines) line.rect.left = kLineMargin;
}

void ToggleMenuCenter(MainMenu &menu) {
    menu.center = !menu.center;
    if (menu.center)
        CenterMenu(menu);
    else
        UnCenterMenu(menu);
}

void SetSel(MainMenu &menu, int index) {
    if (index == menu.selectedLine) return;
    menu.selectedLine = index;
    if (!HasLine(menu, index)) return;
    const MenuRect &line = Line(menu, index).rect;
    menu.highlight = {0, line.top, menu.box.width, line.height};
    menu.highlightPlaced = true;
}

void SetOSSel(MainMenu &menu, int tag) {
    menu.selectedImage = tag;
}

const std::string &ImagePicture(const MainMenu &menu, int tag) {
    const ImageMenuItem &item = menu.images.at(static_cast<std::size_t>(tag - 1));
    return tag == menu.selectedImage && item.hasSelected ? item.selectedFile : item.plainFile;
}

std::int32_t LineForeColor(const MainMenu &menu, int index) {
    return index == menu.selectedLine ? menu.selForeColor : menu.foreColor;
}

MenuRect LineOnForm(const MainMenu &menu, int index) {
    if (!HasLine(menu, index)) return {};
    MenuRect rect = Line(menu, index).rect;
    rect.left += menu.box.left;
    rect.top += menu.box.top;
    return rect;
}

MenuRect ImageOnForm(const MainMenu &menu, int tag) {
    if (tag < 1 || tag > static_cast<int>(menu.images.size())) return {};
    MenuRect rect = menu.images[static_cast<std::size_t>(tag - 1)].rect;
    rect.left += menu.imageBox.left;
    rect.top += menu.imageBox.top;
    return rect;
}

int LineAt(const MainMenu &menu, int x, int y) {
    for (int i = 1; i <= static_cast<int>(menu.lines.size()); ++i)
        if (LineOnForm(menu, i).Contains(x, y)) return i;
    return 0;
}

// A later image stands over an earlier one it overlaps.
int ImageAt(const MainMenu &menu, int x, int y) {
    if (!menu.imageMenu) return 0;
    for (int tag = static_cast<int>(menu.images.size()); tag >= 1; --tag)
        if (ImageOnForm(menu, tag).Contains(x, y)) return tag;
    return 0;
}

// One choice opens one screen: the first test that matches decides, so a caption that holds
// two of the words ("High score options") does not open a second screen behind the first.
MenuAction OpenAMenu(const MainMenu &menu, int index, std::string_view tag) {
    std::string caption;
    if (index != kImageChoice) {
        if (!HasLine(menu, index)) return MenuAction::Nothing;
        caption = NormText(Line(menu, index).caption);
        if (caption.empty()) return MenuAction::Nothing;
    }
    const std::string key = NormText(tag);
    if (!key.empty()) return ActionForTag(key);
    if (caption.empty()) return MenuAction::Nothing;
    if (caption == NormText(menu.stringExit)) return MenuAction::Exit;
    if (caption == NormText(menu.stringNew)) return MenuAction::NewGame;
    if (caption == NormText(menu.stringLoad)) return MenuAction::LoadGame;
    if (InStr(caption, "option") || InStr(caption, "conf")) return MenuAction::Options;
    if (InStr(caption, "high")) return MenuAction::Scores;
    if (InStr(caption, "website")) return MenuAction::Website;
    if (InStr(caption, "credit")) return MenuAction::Credits;
    return MenuAction::Nothing;
}

// The keyboard walks the text menu only: Down on the image menu just puts out the lit image.
MenuAction MenuKey(MainMenu &menu, int keyCode) {
    const int last = static_cast<int>(menu.lines.size());
    switch (keyCode) {
    case kMenuKeyEscape:
        return MenuAction::Exit;
    case kMenuKeyEnter:
        return OpenAMenu(menu, menu.selectedLine, "");
    case kMenuKeyDown:
        if (menu.imageMenu)
            SetOSSel(menu, kNoImage);
        else if (menu.selectedLine < last)
            SetSel(menu, menu.selectedLine + 1);
        break;
    case kMenuKeyUp:
        if (!menu.imageMenu && menu.selectedLine >= 2 && menu.selectedLine <= last)
            SetSel(menu, menu.selectedLine - 1);
        break;
    default:
        break;
    }
    return MenuAction::Nothing;
}

bool AsksLowResolution(int widthPx) {
    return widthPx < 1024;
}

std::string LowResolutionQuestion(int widthPx, int heightPx) {
    return "Your current screen resolution is " + IntText(widthPx) + "x" + IntText(heightPx) +
           "\r\n\r\nThis is below the recommended setting of 1024x768"
           "\r\n\r\nWould you like to change to this higher resolution automatically?"
           "\r\n(WARNING: Some old hardware may not support this feature)"
           "\r\n\r\nClick YES to change to the new resolution..."
           "\r\nClick NO to continue anyway, (if you must)..."
           "\r\nClick CANCEL to exit the application...";
}

} // namespace orrery
