// The element property table: readers and writers agree, and a row's cells are found by key.
#include "project/elementprops.h"
#include "project/loader.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

std::string SampleValue(PropertyValueKind value) {
    switch (value) {
    case PropertyValueKind::Number:
        return "10";
    case PropertyValueKind::Twips:
        return "1440";
    case PropertyValueKind::Colour:
        return "16711680";
    case PropertyValueKind::Boolean:
        return "True";
    case PropertyValueKind::ListItems:
        return "alpha//beta//";
    case PropertyValueKind::Text:
    case PropertyValueKind::Lines:
        return "two`lines";
    case PropertyValueKind::CommandList:
        return "dir`ls";
    default:
        return "scan.bmp";
    }
}

// What a writer gives back is what its reader took, for every kind the key is given to: the
// editor's SaveProperties relies on it.
TEST(ElementProperties, WritersGiveBackWhatReadersTook) {
    const ElementKind kinds[] = {ElementKind::Button, ElementKind::Label, ElementKind::Text,
                                 ElementKind::List,   ElementKind::Image, ElementKind::Qonsole};
    for (const ElementProperty &property : ElementProperties()) {
        if (!property.read || !property.write) continue;
        for (ElementKind kind : kinds) {
            if (!HasKind(property.kinds, kind)) continue;
            ElementControl control;
            control.kind = kind;
            const std::string value = SampleValue(property.value);
            ApplyProperty(control, property.key, value, true);
            EXPECT_EQ(property.write(control), value) << property.key << " on " << KindWord(kind);
        }
    }
}

TEST(ElementProperties, KindAndMakingDecideWhatAControlTakes) {
    ElementRow row{};
    row[kKindColumn] = "text:4";
    row[3] = "ListItems:a//b";
    row[4] = " CAPTION :hello";
    row[5] = "commandlist:dir";
    row[6] = "backstyle:1";
    row[kActionColumn] = "action:RUN=x";
    const struct {
        ElementKind kind;
        bool making;
        std::size_t items;
        const char *caption, *text, *commands;
        int backStyle;
    } cases[] = {
        {ElementKind::List, true, 2, "", "", "", 0},
        {ElementKind::List, false, 0, "", "", "", 0}, // a reset keeps a list's items
        {ElementKind::Label, true, 0, "hello", "", "", 1},
        {ElementKind::Text, true, 0, "", "", "", 0}, // the kind cell's number isn't its text
        {ElementKind::Qonsole, true, 0, "", "", "dir", 0},
        {ElementKind::Qonsole, false, 0, "", "", "", 0},
    };
    for (const auto &c : cases) {
        ElementControl control;
        control.kind = c.kind;
        ApplyProperties(control, row, c.making);
        EXPECT_EQ(control.items.size(), c.items) << KindWord(c.kind);
        EXPECT_EQ(control.caption, c.caption) << KindWord(c.kind);
        EXPECT_EQ(control.text, c.text) << KindWord(c.kind);
        EXPECT_EQ(control.commandList, c.commands) << KindWord(c.kind);
        EXPECT_EQ(control.backStyle, c.backStyle) << KindWord(c.kind);
    }
}

// A property read after the action takes the next count: columns move, keys stay.
TEST(ElementProperties, CellsAreFoundBySetByKeyWhereverTheyStand) {
    ProjectModel m;
    LoadProjectText(m, "g",
                    "[newel]:button:b\r\nelement:1:atool:t\r\nelement:2:button:1\r\n"
                    "element:20:action:RUN=x\r\nelement:21:Caption:Go\r\n");
    ElementRow &row = m.Element(1);
    EXPECT_EQ(PropertyColumn(row, "caption"), 4);
    EXPECT_EQ(PropertyValue(row, "CAPTION"), "Go");
    EXPECT_EQ(PropertyValue(row, "action"), "RUN=x");
    EXPECT_EQ(PropertyValue(row, "width"), std::nullopt);

    EXPECT_EQ(SetPropertyValue(row, "caption", "Stop"), 4);
    EXPECT_EQ(row[4], "caption:Stop");
    EXPECT_EQ(SetPropertyValue(row, "width", "900"), 3);
    EXPECT_EQ(SetPropertyValue(row, "action", "RUN=y"), kActionColumn);
    EXPECT_EQ(row[kActionColumn], "action:RUN=y");

    // The action's column is never taken by another key, so a full row has no room.
    for (int key = 0; PropertyColumn(row, "k" + std::to_string(key)) == 0; ++key)
        if (SetPropertyValue(row, "k" + std::to_string(key), "v") == 0) break;
    EXPECT_EQ(row[kActionColumn], "action:RUN=y");
    EXPECT_EQ(SetPropertyValue(row, "height", "1"), 0);
}

TEST(ElementProperties, KindOfNameTakesTheFirstKindWordInOrder) {
    const std::pair<const char *, ElementKind> cases[] = {
        {"labelbutton", ElementKind::Button}, {"listtext", ElementKind::Text},
        {"imagemap", ElementKind::Image},     {"qonsolemain", ElementKind::Qonsole},
        {"gauge", ElementKind::Other},
    };
    for (const auto &[name, kind] : cases) EXPECT_EQ(KindOfName(name), kind) << name;
}

TEST(ElementProperties, AKeyWithAColumnPerKindFindsTheKindsRow) {
    EXPECT_EQ(FindElementProperty("Alignment", ElementKind::Button)->column, 18);
    EXPECT_EQ(FindElementProperty("alignment", ElementKind::Label)->column, 17);
    EXPECT_EQ(FindElementProperty("nosuchkey"), nullptr);
}

} // namespace
} // namespace orrery
