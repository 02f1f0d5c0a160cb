// The run-time's main menu without any toolkit: the text or image menu, the free pictures and
// labels, border and highlight, laid out in twips from the loaded project, and what a player's
// choice on it asks for. A window only draws it and feeds it the mouse and the keys.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace orrery {

struct ProjectModel;
struct ProjectSettings;

// What the menu asks its window to do after a choice.
enum class MenuAction { Nothing, NewGame, LoadGame, Options, Scores, Website, Credits, Exit };

inline constexpr int kNoLine = 999;       // the selected line when none is
inline constexpr int kNoImage = 9998;     // the lit image when none is
inline constexpr int kImageChoice = 9999; // OpenAMenu's line index for a click on an image
inline constexpr int kImageItems = 8;
inline constexpr int kMenuImageRecords = 99; // free pictures beyond this record are not shown
inline constexpr int kPicture1Size = 600;    // the small picture at the lower left, square

// Key codes as the menu reads them.
inline constexpr int kMenuKeyEnter = 13;
inline constexpr int kMenuKeyEscape = 27;
inline constexpr int kMenuKeyUp = 38;
inline constexpr int kMenuKeyDown = 40;

struct MenuSize {
    int width = 0;
    int height = 0;
};

struct MenuRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool Contains(int x, int y) const {
        return x >= left && x < left + width && y >= top && y < top + height;
    }
};

struct MenuFont {
    std::string name;
    double size = 8; // points
    bool bold = false;
    bool italic = false;
    bool underline = false;
};

// The toolkit's answers, both in twips: a caption's size in a font, and a picture's size by
// its file name below Res/uimages ({0, 0} when there is no such picture).
struct MenuMeasures {
    std::function<MenuSize(std::string_view caption, const MenuFont &font)> text;
    std::function<MenuSize(std::string_view file)> picture;
};

// A line of the text menu; its rect is inside the box.
struct MenuLine {
    std::string caption;
    MenuRect rect;
};

// A picture of the project's menu images, on the form.
struct MenuPicture {
    std::string file;
    MenuRect rect;
};

// A free label on the form. Back style 1 paints the back colour; 0 leaves the form showing.
struct MenuFreeLabel {
    std::string caption;
    std::string tag;
    MenuRect rect;
    MenuFont font;
    std::int32_t backColor = 0;
    std::int32_t foreColor = 0;
    std::int16_t backStyle = 0;
};

// One of the eight items of the image menu, tags 1 to 8; its rect is inside the image box.
struct ImageMenuItem {
    std::string plainFile;
    std::string selectedFile;
    bool hasSelected = false; // the selected picture exists
    MenuRect rect;
};

struct MenuBorder {
    bool shown = false;
    int width = 1; // in pixels, as the shape draws its line
    std::int32_t color = 0;
    MenuRect rect;
};

struct MainMenu {
    MenuSize form; // the menu's window, which fills the screen
    MenuSize screen;
    int designWidth = 0;        // mymenufullwidth
    int designHeight = 0;       // mymenufullheight
    std::string backgroundFile; // below Res/uimages, stretched over the form

    // The text menu: its box, lines, highlight bar and colours.
    MenuRect box;
    bool boxVisible = false;
    bool transparent = false; // lines stand on the form, with neither box nor bar behind them
    std::int32_t boxBackColor = 0;
    std::int32_t foreColor = 0;
    std::int32_t selForeColor = 0;
    std::int32_t selBackColor = 0;
    MenuFont font;
    bool center = false;         // mymenucenter
    std::vector<MenuLine> lines; // line n is lines[n - 1]
    int selectedLine = 0;
    MenuRect highlight; // inside the box
    bool highlightPlaced = false;

    // The image menu.
    bool imageMenu = false;
    MenuRect imageBox;
    std::int32_t imageBackColor = 0;
    std::vector<ImageMenuItem> images; // tag n is images[n - 1]
    int selectedImage = kNoImage;

    std::vector<MenuPicture> pictures;
    std::vector<MenuFreeLabel> labels;
    MenuBorder border;
    MenuRect picture1;

    // Captions of the four fixed lines, as OpenAMenu compares them.
    std::string stringNew;
    std::string stringLoad;
    std::string stringExit;
};

// v scaled by actual / design, the division first, rounded to 16 bits. A project without a
// design size, or a value that leaves 16 bits, is placed as written rather than at the origin.
int ScaleBy(double value, double design, double actual);

// The settings the menu repairs: a border width of 0 becomes 1, a font size of 0 becomes 14
// and a font named "0" becomes "Verdana". The run-time repairs its model once, at loading, so
// the repair lasts the session; an editor leaves the author's values alone.
void RepairMenuSettings(ProjectSettings &settings);

// Builds the whole menu for a form and a screen, both in twips, from the loaded project, read
// as RepairMenuSettings would leave it. The model is not changed.
MainMenu BuildMainMenu(const ProjectModel &project, MenuSize form, MenuSize screen,
                       MenuMeasures measures);

// The text menu's font and lines, and the box sized round them.
void GrowMenu(MainMenu &menu, const ProjectSettings &settings, const MenuMeasures &measures);
void LoadAnImageMenuInstead(MainMenu &menu, const ProjectSettings &settings,
                            const MenuMeasures &measures);
void SetAMenuBorder(MainMenu &menu, const ProjectSettings &settings);
void MakeTransparent(MainMenu &menu);
// Line alignment in the box: centred, or all at 120 twips.
void CenterMenu(MainMenu &menu);
void UnCenterMenu(MainMenu &menu);
void ToggleMenuCenter(MainMenu &menu);

// Moves the highlight to a line. An index with no line (999 among them) only changes the
// selected index; the bar stays where it was.
void SetSel(MainMenu &menu, int index);
// Lights image tag 1 to 8; 9998 lights none. The mouse over an image lights it.
void SetOSSel(MainMenu &menu, int tag);
// The picture image tag shows now: its selected picture while lit, when there is one.
const std::string &ImagePicture(const MainMenu &menu, int tag);
// The colour of line n's words.
std::int32_t LineForeColor(const MainMenu &menu, int index);
// A line's or an image's rect on the form, and what stands at a point of the form (0 when
// nothing does).
MenuRect LineOnForm(const MainMenu &menu, int index);
MenuRect ImageOnForm(const MainMenu &menu, int tag);
int LineAt(const MainMenu &menu, int x, int y);
int ImageAt(const MainMenu &menu, int x, int y);

// What a click on line index (or on an image, with 9999 and the image's tag) asks for.
MenuAction OpenAMenu(const MainMenu &menu, int index, std::string_view tag);
// Escape, Up, Down and Enter; any other key does nothing.
MenuAction MenuKey(MainMenu &menu, int keyCode);

// The question put to a player whose screen is narrower than 1024 pixels; the height is
// never tested.
inline constexpr std::string_view kLowResolutionTitle = "Velmor Bazaar";
bool AsksLowResolution(int widthPx);
std::string LowResolutionQuestion(int widthPx, int heightPx);

} // namespace orrery
