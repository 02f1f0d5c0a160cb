// How the reader treats each kind of line, and where every table ends.
#include "foundation/convert.h"
#include "project/loader.h"

#include <functional>
#include <gtest/gtest.h>

namespace orrery {
namespace {

ProjectModel Load(const std::string &text) {
    ProjectModel model;
    LoadProjectText(model, "Test", text);
    return model;
}

std::string Repeat(int count, const std::function<std::string(int)> &line) {
    std::string text;
    for (int i = 1; i <= count; ++i) text += line(i) + "\r\n";
    return text;
}

TEST(ProjectLoad, TablesEndAsTheirFindersSay) {
    struct Case {
        const char *prefix;
        int limit;
        bool lastSlotOverwritten; // else the record past the end is dropped
        std::function<std::string(const ProjectModel &, int)> slot;
    };
    const Case cases[] = {
        {"service:s", 99, false, [](auto &m, int i) { return m.ServiceTable[i]; }},
        {"helpme:h", 99, true, [](auto &m, int i) { return m.HelpTable[i]; }},
        {"qlob:q", 199, true, [](auto &m, int i) { return m.QlobTable[i]; }},
        {"quantumlock:l", 99, true, [](auto &m, int i) { return m.QuantumLockTable[i]; }},
        {"customserver:c", 500, true, [](auto &m, int i) { return m.CustomServerTable[i]; }},
        {"menudynamic:d", 99, true, [](auto &m, int i) { return m.DynamicTable[i].substr(12); }},
        {"variable:v", 2000, true, [](auto &m, int i) { return m.VariableTable[i].name; }},
        {"toolsub:t", 299, true,
         [](auto &m, int i) {
             return m.ToolSubTable[i].key.substr(0, m.ToolSubTable[i].key.size() - 1);
         }},
        {"mytoolcaption:0:n", 99, true, [](auto &m, int i) { return m.ToolNameTable[i]; }},
        {"serverfield:f", 250, false, [](auto &m, int i) { return m.ServerFieldTable[i]; }},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.prefix);
        const std::string prefix = c.prefix;
        const ProjectModel m =
            Load(Repeat(c.limit + 1, [&](int i) { return prefix + IntText(i); }));
        const std::string tail = prefix.substr(prefix.rfind(':') + 1);
        EXPECT_EQ(c.slot(m, 1), tail + "1");
        EXPECT_EQ(c.slot(m, c.limit - 1), tail + IntText(c.limit - 1));
        EXPECT_EQ(c.slot(m, c.limit),
                  tail + IntText(c.lastSlotOverwritten ? c.limit + 1 : c.limit));
    }
}

TEST(ProjectLoad, ElementsPastTheLastRowVanishButAreCounted) {
    const ProjectModel m = Load(Repeat(kElementRows + 1, [](int i) {
        return "[newel]:button:b" + IntText(i) + "\r\nelement:1:atool:t";
    }));
    EXPECT_EQ(m.elementCount, kElementRows + 1);
    EXPECT_EQ(m.Element(kElementRows)[0], "b1499");
    EXPECT_EQ(m.Element(kElementRows)[2], "button:1499");
}

TEST(ProjectLoad, MenuLabelsPastTheTableAreDropped) {
    const ProjectModel m = Load(Repeat(100, [](int i) {
        return "menulabelcaption:" + IntText(i) + ":L" + IntText(i) +
               "\r\nmenulabelleft:0:" + IntText(i);
    }));
    EXPECT_EQ(m.MenuLabelTable[99].caption, "L99");
    EXPECT_EQ(m.MenuLabelTable[99].left, 99);
}

TEST(ProjectLoad, SettingLinesAreTreatedByTheirCode) {
    struct Case {
        const char *line;
        std::function<std::string(const ProjectSettings &)> read;
        const char *expected;
    };
    auto text = [](std::string ProjectSettings::*m) {
        return [m](const ProjectSettings &s) { return s.*m; };
    };
    auto number = [](auto ProjectSettings::*m) {
        return [m](const ProjectSettings &s) { return IntText(s.*m); };
    };
    auto boolean = [](bool ProjectSettings::*m) {
        return [m](const ProjectSettings &s) { return BoolText(s.*m); };
    };
    const Case cases[] = {
        {"  MyQList :True", boolean(&ProjectSettings::myqlist), "True"},
        {"myqlist:maybe", boolean(&ProjectSettings::myqlist), "False"},
        {"myqlist: -1 ", boolean(&ProjectSettings::myqlist), "True"},
        {"mymenubackground:c:\\a.bmp", text(&ProjectSettings::mymenubackground), "c"},
        {"mymainsubload: RUN=x ", text(&ProjectSettings::mymainsubload), " RUN=x "},
        {"myqfontname: Arial ", text(&ProjectSettings::myqfontname), "Arial"},
        {"myprojectdescription:a//b// ", text(&ProjectSettings::myprojectdescription),
         "a\r\nb\r\n"},
        {"myqlistforecolor1:77", number(&ProjectSettings::myqlistforecolor1), "77"},
        {"myqfontsize:3.5abc", number(&ProjectSettings::myqfontsize), "4"},
        {"mymenuboxleft:40000", number(&ProjectSettings::mymenuboxleft), "0"},
        {"mymenuboxleft:-32768", number(&ProjectSettings::mymenuboxleft), "-32768"},
        {"mymenuborderwidth: 2.5 ", number(&ProjectSettings::mymenuborderwidth), "2"},
        {"mymenuborderwidth:2 px", number(&ProjectSettings::mymenuborderwidth), "0"},
        {"mymenufontsize:&H10", number(&ProjectSettings::mymenufontsize), "16"},
        {"myserversrandom:10000 servers", text(&ProjectSettings::myserversrandom), "10000"},
        {"myserversrandom:lots", text(&ProjectSettings::myserversrandom), "0"},
        {"MyHiddenTools:Mail:Hyper myhiddentools:X", text(&ProjectSettings::myhiddentools),
         "mail:hyper x"},
        {"mymenufullwidth:5", number(&ProjectSettings::mymenufullwidth), "15360"},
        {"myprojectname:Other", text(&ProjectSettings::myprojectname), "Test"},
        {"mtdefstyleqonsolefontname:Mono", text(&ProjectSettings::mtdefstyleqonsolefontname),
         "Mono"},
        {"mytopmenu:", text(&ProjectSettings::mytopmenu), kDefaultTopMenu.data()},
        {"originwidth:9000", text(&ProjectSettings::originheight), "11520"},
    };
    for (const Case &c : cases) EXPECT_EQ(c.read(Load(c.line).settings), c.expected) << c.line;
}

TEST(ProjectLoad, ElementPropertiesFillColumnsInReadingOrder) {
    std::string text = "[newel]:Button: Fire \r\n";
    for (int i = 1; i <= 25; ++i)
        text += "element:" + IntText(40 - i) + ":p" + IntText(i) + ":v:x\r\n";
    text += "[newel]:qonsole:q\r\nelement:7:onAction:RUN=a\r\nelement:1:atool:t\r\n";
    const ProjectModel m = Load(text);
    const ElementRow &fire = m.Element(1);
    EXPECT_EQ(fire[0], "fire");
    EXPECT_EQ(fire[1], "p1:v");
    EXPECT_EQ(fire[20], "p20:v");
    EXPECT_EQ(fire[21], "p25:v");
    const ElementRow &qonsole = m.Element(2);
    EXPECT_EQ(qonsole[2], "atool:t"); // the action took count 1, so the tool went to column 2
    EXPECT_EQ(qonsole[20], "onAction:RUN=a");
    EXPECT_TRUE(qonsole[1].empty());
}

TEST(ProjectLoad, ElementTypeLineGivesTheNumberUntilTheSecondPropertyDoes) {
    const ProjectModel m = Load("[newel]:image:a\r\n[newel]:LIST:b\r\nelement:1:atool:t\r\n"
                                "element:2:list:77\r\n[newel]:qonsole:c\r\n");
    EXPECT_EQ(m.Element(1)[2], "image:1");
    EXPECT_EQ(m.Element(2)[2], "list:77");
    EXPECT_TRUE(m.Element(3)[2].empty());
}

TEST(ProjectLoad, RecordLinesKeepTheirColonsAndLoseTheirKey) {
    const ProjectModel m =
        Load("qlob:scan:RUN=a//qlob:b\r\nQLOB:Upper\r\nvariable: $x = 1 = 2\r\nvariable:$x=3\r\n"
             "toolsub:tool:open:RUN=x:y\r\nserverfield:  IP (RANDOM:IP) \r\nhelpme:T:a//b\r\n");
    EXPECT_EQ(m.QlobTable[1], "scan:RUN=a//b");
    EXPECT_EQ(m.QlobTable[2], "QLOB:Upper");
    EXPECT_EQ(m.VariableTable[1].name, "$x");
    EXPECT_EQ(m.VariableTable[1].value, "1");
    EXPECT_EQ(m.VariableTable[2].value, "3");
    EXPECT_EQ(m.ToolSubTable[1].key, "tool:open");
    EXPECT_EQ(m.ToolSubTable[1].sequence, "RUN=x");
    EXPECT_EQ(m.ServerFieldTable[1], "IP (RANDOM:IP)");
    EXPECT_EQ(m.HelpTable[1], "T:a//b");
}

TEST(ProjectLoad, AModelOnlyGrows) {
    ProjectModel m;
    LoadProjectText(m, "a", "[newel]:button:x\r\nelement:1:atool:t\r\nqlob:one\r\n");
    LoadProjectText(m, "b", "[newel]:button:y\r\nelement:1:atool:t\r\nqlob:two\r\n");
    EXPECT_EQ(m.Element(2)[0], "y");
    EXPECT_EQ(m.Element(2)[2], "button:2");
    EXPECT_EQ(m.QlobTable[2], "two");
}

// The engine's statements stop at three nameless rows in a row; a lookup by value walks on.
TEST(ProjectLoad, FindElementRowWalksTheWholeTableOrUpToTheGap) {
    ProjectModel m;
    m.Element(1)[kNameColumn] = "labela";
    m.Element(3)[kNameColumn] = "Labelb"; // a row's name is compared in its name form
    m.Element(7)[kNameColumn] = "labelc"; // behind the gap of rows 4 to 6
    const struct {
        const char *name;
        RowWalk walk;
        int row;
    } cases[] = {
        {"labelb", RowWalk::WholeTable, 3}, {"labelb", RowWalk::UpToGap, 3},
        {"labelc", RowWalk::WholeTable, 7}, {"labelc", RowWalk::UpToGap, 0},
        {"LabelB", RowWalk::WholeTable, 0}, {"", RowWalk::WholeTable, 0},
        {"", RowWalk::UpToGap, 2},
    };
    for (const auto &c : cases)
        EXPECT_EQ(FindElementRow(m, c.name, c.walk), c.row)
            << c.name << (c.walk == RowWalk::UpToGap ? " up to the gap" : "");
}

TEST(ProjectLoad, FindQlobMatchesAPrefixOfTheNameForm) {
    const ProjectModel m = Load("qlob:Scanner:RUN=a\r\nqlob:scan:RUN=b\r\n");
    EXPECT_EQ(FindQlob(m, ""), 0);
    EXPECT_EQ(FindQlob(m, "  "), 0);
    EXPECT_EQ(FindQlob(m, " SCAN"), 1);
    EXPECT_EQ(FindQlob(m, "scanners"), 0);
}

TEST(ProjectLoad, CorruptInputLoadsWhatItCan) {
    std::string junk("\0\xff:\r\r\n:::\n[newel]\nelement\nmenulabeltop:1:5\nmenuimageleft:1:2\n",
                     50);
    junk += "myqfontsize:1e400\r\nmyqfontsize:nan\r\nmyclock:True";
    const ProjectModel m = Load(junk);
    EXPECT_TRUE(m.settings.myclock);
    EXPECT_EQ(m.settings.myqfontsize, 0);
    EXPECT_TRUE(m.menuImages.empty());
}

// A run of one key is read on a short path; a key spelt otherwise, or one that only begins
// like it, must still be told apart.
TEST(ProjectLoad, KeysInARunAreKnownWhateverTheirSpelling) {
    const ProjectModel m = Load("[newel]:button:b\r\nelement:1:atool:t\r\nELEMENT:2:p2:v\r\n"
                                " element :3:p3:v\r\nelements:4:p4:v\r\nelement:5:p5:v\r\n");
    const ElementRow &row = m.Element(1);
    EXPECT_EQ(row[2], "p2:v");
    EXPECT_EQ(row[3], "p3:v");
    EXPECT_EQ(row[4], "p5:v");
    EXPECT_TRUE(row[5].empty());
}

} // namespace
} // namespace orrery
