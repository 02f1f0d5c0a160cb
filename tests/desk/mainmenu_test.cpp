// The main menu: its lines, fonts, border, centring and image stack, and what choices and keys
// ask for.
#include "desk/mainmenu.h"
#include "project/model.h"

#include <gtest/gtest.h>
#include <map>

namespace orrery {
namespace {

using Captions = std::vector<std::string>;

// Text is 100 twips a character and 20 twips a point high; pictures come from a table.
struct MenuFixture {
    ProjectModel project;
    std::map<std::string, MenuSize> pictures;

    MenuFixture() {
        ProjectSettings &s = project.settings;
        s.mymenufullwidth = 15360;
        s.mymenufullheight = 11520;
        s.originwidth = "15360";
        s.originheight = "11520";
        s.mymenustringnew = "New Game";
        s.mymenustringload = "Load Game";
        s.mymenustringoptions = "Options";
        s.mymenustringexit = "Exit Game";
        s.mymenufontsize = 10;
        s.mymenuboxleft = 3000;
        s.mymenuboxtop = 2000;
    }
    MainMenu Build(MenuSize form = {15360, 11520}) {
        MenuMeasures measures;
        measures.text = [](std::string_view caption, const MenuFont &font) {
            return MenuSize{static_cast<int>(caption.size()) * 100,
                            static_cast<int>(font.size * 20)};
        };
        measures.picture = [this](std::string_view file) {
            const auto found = pictures.find(std::string(file));
            return found == pictures.end() ? MenuSize{} : found->second;
        };
        return BuildMainMenu(project, form, form, measures);
    }
};

Captions LineCaptions(const MainMenu &menu) {
    Captions captions;
    for (const MenuLine &line : menu.lines) captions.push_back(line.caption);
    return captions;
}

TEST(MainMenu, LinesFollowTheSwitchesAndStackInsideTheBox) {
    MenuFixture f;
    MainMenu menu = f.Build();
    EXPECT_EQ(LineCaptions(menu), (Captions{"New Game", "Load Game", "Options", "Exit Game"}));
    f.project.settings.mymenuwebsite = f.project.settings.mymenucredits = true;
    f.project.settings.mymenuhelp = f.project.settings.mymenuhighscores = true;
    menu = f.Build();
    EXPECT_EQ(LineCaptions(menu), (Captions{"New Game", "Load Game", "Options", "Open Website",
                                            "Credits", "Help", "Exit Game"}));
    for (std::size_t i = 0; i < menu.lines.size(); ++i)
        EXPECT_EQ(menu.lines[i].rect.top, 120 + static_cast<int>(i) * 200) << i;
    EXPECT_EQ(menu.box.height, 120 + 7 * 200 + 120);
    EXPECT_EQ(menu.box.width, 1200 + 240) << "\"Open Website\" is the widest line";
    EXPECT_EQ(menu.highlight.top, 120) << "line 1 is selected at the start";
    EXPECT_EQ(menu.highlight.width, menu.box.width);
}

TEST(MainMenu, FontRulesAndScaleToTheForm) {
    struct Row {
        std::int32_t size;
        const char *name;
        int formWidth;
        double expectedSize;
        const char *expectedName;
    };
    const Row rows[] = {{0, "0", 15360, 14, "Verdana"},
                        {12, "  ", 7680, 6, "Verdana"},
                        {12, "Tahoma", 30720, 24, "Tahoma"},
                        {-3, "Arial", 15360, 10, "Arial"}};
    for (const Row &row : rows) {
        MenuFixture f;
        f.project.settings.mymenufontsize = row.size;
        f.project.settings.mymenufont = row.name;
        const MainMenu menu = f.Build({row.formWidth, 11520});
        EXPECT_DOUBLE_EQ(menu.font.size, row.expectedSize) << row.size;
        EXPECT_EQ(menu.font.name, row.expectedName) << row.name;
    }
    MenuFixture f;
    f.project.settings.mymenufontsize = 0;
    f.project.settings.mymenuborderwidth = 0;
    f.Build();
    EXPECT_EQ(f.project.settings.mymenufontsize, 0) << "building leaves the model alone";
    RepairMenuSettings(f.project.settings);
    EXPECT_EQ(f.project.settings.mymenufontsize, 14);
    EXPECT_EQ(f.project.settings.mymenuborderwidth, 1);
}

TEST(MainMenu, OpenAMenuTestsTheCaptionsInOrder) {
    MenuFixture f;
    f.project.settings.mymenustringexit = "Exit Options";
    MainMenu menu = f.Build();
    const std::pair<const char *, MenuAction> rows[] = {
        {"Exit Options", MenuAction::Exit},    {" new GAME ", MenuAction::NewGame},
        {"Load Game", MenuAction::LoadGame},   {"Configure", MenuAction::Options},
        {"Game options", MenuAction::Options}, {"High scores", MenuAction::Scores},
        {"Open Website", MenuAction::Website}, {"Credits", MenuAction::Credits},
        {"Help", MenuAction::Nothing},         {"Settings", MenuAction::Nothing},
        {"   ", MenuAction::Nothing}};
    for (const auto &[caption, action] : rows) {
        menu.lines[0].caption = caption;
        EXPECT_EQ(OpenAMenu(menu, 1, ""), action) << caption;
        EXPECT_EQ(MenuKey(menu, kMenuKeyEnter), action) << caption;
    }
    EXPECT_EQ(OpenAMenu(menu, 1, "1"), MenuAction::Nothing) << "a blank line is inert";
    EXPECT_EQ(OpenAMenu(menu, 42, ""), MenuAction::Nothing);

    const MenuAction byTag[] = {MenuAction::NewGame, MenuAction::LoadGame, MenuAction::Options,
                                MenuAction::Scores,  MenuAction::Website,  MenuAction::Credits,
                                MenuAction::Nothing, MenuAction::Exit};
    for (int tag = 1; tag <= 8; ++tag)
        EXPECT_EQ(OpenAMenu(menu, kImageChoice, " " + std::to_string(tag)), byTag[tag - 1]) << tag;
    EXPECT_EQ(OpenAMenu(menu, kImageChoice, ""), MenuAction::Nothing);
}

TEST(MainMenu, KeysStopAtTheEndsAndNeverReachTheImages) {
    MenuFixture f;
    MainMenu menu = f.Build();
    EXPECT_EQ(MenuKey(menu, kMenuKeyUp), MenuAction::Nothing);
    EXPECT_EQ(menu.selectedLine, 1);
    for (int i = 0; i < 6; ++i) MenuKey(menu, kMenuKeyDown);
    EXPECT_EQ(menu.selectedLine, 4);
    EXPECT_EQ(MenuKey(menu, kMenuKeyEnter), MenuAction::Exit);
    MenuKey(menu, kMenuKeyUp);
    EXPECT_EQ(menu.selectedLine, 3);
    EXPECT_EQ(MenuKey(menu, kMenuKeyEscape), MenuAction::Exit);

    SetSel(menu, kNoLine);
    EXPECT_EQ(menu.highlight.top, 120 + 2 * 200) << "no line 999: the bar stays";
    EXPECT_EQ(MenuKey(menu, kMenuKeyEnter), MenuAction::Nothing);

    f.project.settings.myimagemenu = true;
    menu = f.Build();
    SetOSSel(menu, 3);
    MenuKey(menu, kMenuKeyUp);
    EXPECT_EQ(menu.selectedImage, 3);
    MenuKey(menu, kMenuKeyDown);
    EXPECT_EQ(menu.selectedImage, kNoImage);
}

TEST(MainMenu, BorderWidthZeroBecomesOneAndFramesTheBox) {
    const std::pair<std::int16_t, int> rows[] = {{0, 1}, {3, 3}};
    for (const auto &[setting, width] : rows) {
        MenuFixture f;
        f.project.settings.mymenuborder = true;
        f.project.settings.mymenuborderwidth = setting;
        const MainMenu menu = f.Build();
        EXPECT_EQ(menu.border.width, width);
        const MenuRect expected{menu.box.left - width * 10 - 5, menu.box.top - width * 10 - 5,
                                menu.box.width + width * 25 + 10,
                                menu.box.height + width * 25 + 10};
        EXPECT_EQ(menu.border.rect.left, expected.left);
        EXPECT_EQ(menu.border.rect.top, expected.top);
        EXPECT_EQ(menu.border.rect.width, expected.width);
        EXPECT_EQ(menu.border.rect.height, expected.height);
    }
}

TEST(MainMenu, CentringOfTheBoxAndOfTheLines) {
    MenuFixture f;
    f.project.settings.mymenuboxleft = 7680; // half the design width: half the form
    MainMenu menu = f.Build({7680, 5760});
    EXPECT_EQ(menu.box.left, 3840);
    EXPECT_EQ(menu.box.top, 1000);
    for (const MenuLine &line : menu.lines) EXPECT_EQ(line.rect.left, 120);
    ToggleMenuCenter(menu);
    EXPECT_EQ(menu.lines[0].rect.left, menu.box.width / 2 - 800 / 2);

    f.project.settings.myforcecentermenu = true;
    f.project.settings.mymenutransparent = true;
    menu = f.Build({7680, 5760});
    EXPECT_EQ(menu.box.left, 3840 - menu.box.width / 2);
    EXPECT_EQ(menu.box.top, 2880 - menu.box.height / 2);
    EXPECT_FALSE(menu.boxVisible);
    EXPECT_EQ(LineOnForm(menu, 2).top, menu.box.top + 220) << "transparent lines keep their place";
    EXPECT_EQ(LineAt(menu, menu.box.left + 130, menu.box.top + 230), 2);
}

TEST(MainMenu, ImageMenuStacksRealPicturesOnly) {
    MenuFixture f;
    ProjectSettings &s = f.project.settings;
    s.myimagemenu = true;
    s.myimspacing = "60";
    s.myimleft = "1536";
    s.myimnewgame = "new.bmp";
    s.myimnewgames = "new-lit.bmp";
    s.myimloadgame = "none.bmp"; // no such picture
    s.myimoptions = "dot.bmp";   // 480 twips: no room taken
    s.myimhighscores = "high.bmp";
    f.pictures = {{"new.bmp", {1500, 300}},
                  {"new-lit.bmp", {1500, 300}},
                  {"dot.bmp", {480, 480}},
                  {"high.bmp", {2000, 400}}};
    MainMenu menu = f.Build({7680, 5760});
    EXPECT_EQ(menu.imageBox.left, 768);
    const int tops[] = {0, 360, 360, 360, 820, 820, 820, 820};
    for (int tag = 1; tag <= 8; ++tag)
        EXPECT_EQ(menu.images[tag - 1].rect.top, tops[tag - 1]) << tag;
    EXPECT_EQ(menu.imageBox.width, 2000);
    EXPECT_EQ(menu.imageBox.height, 840) << "the dot reaches lowest";
    EXPECT_FALSE(menu.boxVisible);
    EXPECT_EQ(ImageAt(menu, 768 + 100, 370), 4) << "the later image lies over the dot";

    SetOSSel(menu, 1);
    EXPECT_EQ(ImagePicture(menu, 1), "new-lit.bmp");
    SetOSSel(menu, 5);
    EXPECT_EQ(ImagePicture(menu, 1), "new.bmp");
    EXPECT_EQ(ImagePicture(menu, 5), "") << "no selected picture: the plain one stays";
}

TEST(MainMenu, FreeLabelsAndPicturesStandAtTheOriginScale) {
    MenuFixture f;
    MenuLabel &label = f.project.MenuLabelTable[1];
    label = {"Night  ", "", "1000:2000", 0, 0, 255, 0, 1, true, false, false, "12", "Tahoma"};
    f.project.MenuLabelTable[2] = {"Unplaced", "", "", 5, 5, 0, 0, 0, false, false, false, "", ""};
    f.project.menuImages = {{"logo.bmp", 0, 0, "3000:600"}, {" ", 0, 0, "1:1"}};
    f.pictures = {{"logo.bmp", {900, 450}}};
    const MainMenu menu = f.Build({7680, 5760});
    ASSERT_EQ(menu.labels.size(), 1u) << "a label shows only once its data field places it";
    EXPECT_EQ(menu.labels[0].caption, " Night ");
    EXPECT_EQ(menu.labels[0].rect.left, 500);
    EXPECT_EQ(menu.labels[0].rect.top, 1000);
    EXPECT_DOUBLE_EQ(menu.labels[0].font.size, 6);
    ASSERT_EQ(menu.pictures.size(), 1u);
    EXPECT_EQ(menu.pictures[0].rect.left, 1500);
    EXPECT_EQ(menu.pictures[0].rect.top, 300);
    EXPECT_EQ(menu.pictures[0].rect.width, 900);
    EXPECT_EQ(menu.picture1.top, 5760 - kPicture1Size - 360);
}

TEST(MainMenu, LowResolutionQuestionOnlyBelow1024Wide) {
    EXPECT_TRUE(AsksLowResolution(800));
    EXPECT_FALSE(AsksLowResolution(1024));
    EXPECT_FALSE(AsksLowResolution(1280)) << "1280 by 600: the height is never tested";
    EXPECT_EQ(LowResolutionQuestion(800, 600),
              "Your current screen resolution is 800x600\r\n\r\n"
              "This is below the recommended setting of 1024x768\r\n\r\n"
              "Would you like to change to this higher resolution automatically?\r\n"
              "(WARNING: Some old hardware may not support this feature)\r\n\r\n"
              "Click YES to change to the new resolution...\r\n"
              "Click NO to continue anyway, (if you must)...\r\n"
              "Click CANCEL to exit the application...");
}

} // namespace
} // namespace orrery
