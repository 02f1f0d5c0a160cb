// The writer's clean-up, compaction and the settling of odd element layouts.
#include "foundation/text.h"
#include "project/loader.h"
#include "project/saver.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

// The [tools] section of the text, from the first "[newel]" line to the next heading.
std::string ToolsSection(const std::string &text) {
    const auto start = text.find("[newel]");
    if (start == std::string::npos) return {};
    return text.substr(start, text.find("\r\n\r\n[dynamics]") - start);
}

TEST(ProjectSave, TheTextIsWhatTheCleanUpLeavesInTheTable) {
    struct Case {
        int column;
        const char *stored;
        const char *written;
        const char *storedAfter;
    };
    const Case cases[] = {
        {5, "fontname:Arial", "element:5:fontname:Arial", "fontname:Arial"},
        {5, "element:fontname:Arial", "element:5:fontname:Arial", "fontname:Arial"},
        {5, "action:action:RUN=x", "element:5:action:RUN=x", "action:RUN=x"},
        {20, "RUN=x", "element:20:action:RUN=x", "action:RUN=x"},
        {20, "OnAction:RUN=x", "element:20:OnAction:RUN=x", "OnAction:RUN=x"},
        {3, "3:text:legacy", "element:3:legacy", "legacy"},
        {3, " 12 :caption", "element:3:", ""},
        {4, "eleelement:ment:4:x", "element:4:x", "element:4:x"},
    };
    for (const Case &c : cases) {
        ProjectModel m;
        m.Element(1)[0] = "e";
        m.Element(1)[1] = "atool:t";
        m.Element(1)[static_cast<std::size_t>(c.column)] = c.stored;
        const std::string tools = ToolsSection(BuildProjectText(m));
        EXPECT_NE(tools.find(std::string(c.written) + "\r\n"), std::string::npos)
            << c.stored << "\n"
            << tools;
        NormaliseForSave(m);
        EXPECT_EQ(m.Element(1)[static_cast<std::size_t>(c.column)], c.storedAfter) << c.stored;
    }
}

TEST(ProjectSave, BlankSlotsAndOwnerlessElementsWriteNothing) {
    ProjectModel m;
    m.Element(1)[0] = "orphan";
    m.Element(1)[2] = "button:1";
    m.Element(1)[5] = "fontsize:10";
    m.Element(2)[1] = "atool:t";
    m.Element(2)[2] = "label:2";
    m.QlobTable[1] = "   ";
    m.HelpTable[2] = " ";
    m.VariableTable[1] = {" ", "lost"};
    m.ToolNameTable[3] = "Third";
    m.ToolNameTable[7] = " Seventh ";
    m.ToolSubTable[4] = {"t:open:action:", "RUN=x"};
    const std::string text = BuildProjectText(m);
    EXPECT_EQ(text.find("orphan"), std::string::npos);
    EXPECT_NE(text.find("[newel]:label:\r\nelement:1:atool:t\r\nelement:2:label:2\r\n\r\n"),
              std::string::npos);
    EXPECT_EQ(text.find("qlob:"), std::string::npos);
    EXPECT_EQ(text.find("helpme:"), std::string::npos);
    EXPECT_EQ(text.find("lost"), std::string::npos);
    EXPECT_NE(text.find("mytoolcaption:1:Third\r\nmytoolcaption:2:Seventh\r\n"), std::string::npos);
    EXPECT_NE(text.find("toolsub:t:open::RUN=x\r\n"), std::string::npos);
    NormaliseForSave(m);
    EXPECT_EQ(m.ToolSubTable[4].key, "t:open:");
    EXPECT_EQ(text.find("mtdefstyleqonsole"), std::string::npos);
}

// A property read after the action takes the next count, and a gap closes on reload: such an
// element settles after two saves, and from then on its bytes stay.
TEST(ProjectSave, PropertyAfterTheActionSettlesInTwoSaves) {
    ProjectModel first;
    LoadProjectText(first, "g",
                    "[newel]:button:b\r\nelement:1:atool:t\r\nelement:2:button:1\r\n"
                    "element:20:action:RUN=x\r\nelement:21:tag:late\r\n");
    EXPECT_EQ(first.Element(1)[4], "tag:late");
    std::string text = BuildProjectText(first);
    for (int save = 2; save <= 3; ++save) {
        ProjectModel next;
        LoadProjectText(next, "g", text);
        text = BuildProjectText(next);
    }
    ProjectModel settled;
    LoadProjectText(settled, "g", text);
    EXPECT_EQ(BuildProjectText(settled), text);
    EXPECT_NE(text.find("element:3:tag:late\r\nelement:20:action:RUN=x\r\n"), std::string::npos)
        << text;
}

TEST(ProjectSave, BackupNameStripsPunctuationFromNameAndStamp) {
    EXPECT_EQ(BackupFileName("My: Game!", "2026/01/02 03:04:05"), "my game_20260102 030405_.dat");
    EXPECT_EQ(BackupFileName("$$$", "x"), "_x_.dat");
}

// A legacy "<column>:<key>:<value>" property is known by a number in front, in any form a
// number takes; text that only looks like one keeps its place.
TEST(ProjectSave, EveryNumberFormInFrontMarksALegacyProperty) {
    const std::pair<const char *, const char *> cases[] = {
        {"&H1F:text:hex", "hex"},   {"&o7:text:oct", "oct"},    {".5:text:point", "point"},
        {"-2:text:minus", "minus"}, {"+7:text:plus", "plus"},   {"1e3:text:exp", "exp"},
        {"&x:text:v", "&x:text:v"}, {"e1:text:v", "e1:text:v"}, {"1x:text:v", "1x:text:v"},
    };
    for (const auto &[stored, storedAfter] : cases) {
        ProjectModel m;
        m.Element(1)[1] = "atool:t";
        m.Element(1)[3] = stored;
        NormaliseForSave(m);
        EXPECT_EQ(m.Element(1)[3], storedAfter) << stored;
    }
}

} // namespace
} // namespace orrery
