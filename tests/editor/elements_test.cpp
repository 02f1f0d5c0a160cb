// The element operations: names, arrays, properties, nudges, deletes, copied properties and
// qombos, each one step that undoes to the byte.
#include "editor/elements.h"
#include "editor/snap.h"
#include "editor/tools.h"
#include "editor/words.h"
#include "fixture.h"
#include "foundation/random.h"
#include "project/loader.h"

#include <functional>
#include <gtest/gtest.h>

namespace orrery {
namespace {

using test::FileText;
using test::NewProject;

std::string Cell(const ProjectModel &m, std::string_view element, std::string_view key) {
    return PropertyValue(m.Element(ElementRowByName(m, element)), key).value_or("<none>");
}

TEST(ElementNames, TheKindWordGoesBeforeTheCleanedName) {
    const std::pair<const char *, const char *> rows[] = {{"labelstatus", "status"},
                                                          {"Big Button!", "big"},
                                                          {"my-list of texts", "my- of s"},
                                                          {"../../etc", "....etc"}};
    for (const auto &[typed, clean] : rows) EXPECT_EQ(CleanElementName(typed), clean) << typed;
}

TEST(SnapToGrid, ComesToRestOnTheLinesFortyIn) {
    const std::pair<std::int32_t, std::int32_t> rows[] = {
        {40, 40}, {100, 40}, {159, 40}, {160, 160}, {0, -80}, {-1, -80}, {-81, -200}, {1234, 1120}};
    for (const auto &[at, rest] : rows) EXPECT_EQ(SnapToGrid(at), rest) << at;
}

TEST(SnapDrag, AnEdgeWithinReachWinsOverTheGrid) {
    // Another element at 1000..2000 across and 600..900 down; reach 90 twips.
    const std::vector<Box> others{{1000, 600, 1000, 300}};
    struct Row {
        Box moving;
        std::int32_t left, top;
        std::optional<std::int32_t> guideX, guideY;
    };
    const Row rows[] = {
        {{1050, 2000, 500, 200}, 1000, 1960, 1000, std::nullopt}, // left edges meet
        {{1580, 2000, 400, 200}, 1600, 1960, 2000, std::nullopt}, // right edge on its right edge
        {{1260, 2000, 500, 200}, 1250, 1960, 1500, std::nullopt}, // centre lines meet
        {{3000, 880, 500, 200}, 2920, 900, std::nullopt, 900},    // top on its bottom edge
        {{3000, 3000, 500, 200}, 2920, 2920, std::nullopt, std::nullopt}, // nothing near: grid
    };
    for (const Row &row : rows) {
        const Snapped snapped = SnapDrag(row.moving, others, 90);
        EXPECT_EQ(snapped.left, row.left) << row.moving.left;
        EXPECT_EQ(snapped.top, row.top) << row.moving.top;
        EXPECT_EQ(snapped.guideX, row.guideX) << row.moving.left;
        EXPECT_EQ(snapped.guideY, row.guideY) << row.moving.top;
    }
}

TEST(AddElement, RulesAndWords) {
    struct Row {
        const char *tool;
        ElementKind kind;
        const char *name;
        std::optional<Message> refusal;
    };
    const Row rows[] = {
        {"Console", ElementKind::Other, "status", words::kNoKindChosen},
        {"Nowhere", ElementKind::Label, "status", words::kNoToolChosen},
        {"Console", ElementKind::Label, "ab", words::kElementNameInvalid},
        {"Console", ElementKind::Label, "label ab!", words::kElementNameInvalid},
        {"Console", ElementKind::Button, "status", words::kElementNameExists},
        {"Console", ElementKind::Button, "atus", words::kElementNameExists},
        {"Console", ElementKind::Button, "statuses", std::nullopt},
    };
    for (const Row &row : rows) {
        ProjectModel m = NewProject();
        ASSERT_FALSE(AddElement(m, "Connector", ElementKind::Label, "labelstatus").refused());
        EXPECT_EQ(AddElement(m, row.tool, row.kind, row.name).refusal, row.refusal) << row.name;
    }
    ProjectModel m = NewProject();
    ASSERT_FALSE(AddElement(m, "Console", ElementKind::Qonsole, "main", {240, 360}).refused());
    EXPECT_EQ(Cell(m, "qonsolemain", "commandlist"), words::kNewQonsoleCommands);
    EXPECT_EQ(Cell(m, "qonsolemain", "atool"), "Console");
    EXPECT_EQ(Cell(m, "qonsolemain", "left"), "240");
    EXPECT_EQ(Cell(m, "qonsolemain", "fontname"), "Verdana");
    // A project read back from its file has no console style; a new console still shows.
    m.settings.mtdefstyleqonsolefontsize = 0;
    m.settings.mtdefstyleqonsoleforecolor = 0;
    ASSERT_FALSE(AddElement(m, "Console", ElementKind::Qonsole, "second").refused());
    EXPECT_NE(Cell(m, "qonsolesecond", "fontsize"), "0");
    EXPECT_NE(Cell(m, "qonsolesecond", "forecolor"), Cell(m, "qonsolesecond", "backcolor"));
}

TEST(AddArray, TwelveInOneStepThirteenRefused) {
    Random random(7);
    const std::pair<const char *, int> rows[] = {{"12", 12}, {"13", 0}, {"0", 0}, {"many", 0}};
    for (const auto &[count, added] : rows) {
        ProjectModel m = NewProject();
        const std::string before = FileText(m);
        const Outcome outcome = AddArray(m, "Console", ElementKind::Label, count, random);
        EXPECT_EQ(m.elementCount, added) << count;
        EXPECT_EQ(outcome.refused(), std::string(count) == "13") << count;
        if (added) {
            EXPECT_EQ(outcome.notes, std::vector<Message>{words::kArrayWarning});
            outcome.change.Undo(m);
            EXPECT_EQ(FileText(m), before);
        }
    }
}

TEST(AddArray, AGivenStemNamesTheItems) {
    ProjectModel m = NewProject();
    Random random(3);
    ASSERT_FALSE(AddArray(m, "Console", ElementKind::Label, "3", random, "Slot").refused());
    EXPECT_NE(ElementRowByName(m, "labelslot(3)"), 0);
    EXPECT_TRUE(AddArray(m, "Console", ElementKind::Button, "2", random, "slot").refused())
        << "labelslot(1) ends in slot(1)";
}

TEST(SetElementProperty, ValuesAreCheckedAndKeptAsTheFileKeepsThem) {
    ProjectModel m = NewProject();
    ASSERT_FALSE(AddElement(m, "Console", ElementKind::Image, "logo").refused());
    ASSERT_FALSE(AddElement(m, "Console", ElementKind::Button, "gogo").refused());
    ASSERT_FALSE(AddElement(m, "Console", ElementKind::Text, "box").refused());
    struct Row {
        const char *element, *key, *value;
        bool refused;
        const char *stored;
    };
    const Row rows[] = {
        {"buttongogo", "width", " 2400 ", false, "2400"},
        {"buttongogo", "width", "wide", true, nullptr},
        {"buttongogo", "fontbold", "true", false, "True"},
        {"buttongogo", "caption", "a:b", true, nullptr},
        {"buttongogo", "action", "PRINT [a: b]", false, "PRINT [a; b]"},
        {"buttongogo", "datafield", "x.gif", true, nullptr},
        {"imagelogo", "datafield", "../settings.dat", true, nullptr},
        {"imagelogo", "datafield", "logo.gif", false, "logo.gif"},
        {"imagelogo", "atool", "Nowhere", true, nullptr},
        {"buttongogo", "button", "7", true, nullptr},
        {"textbox", "text", "hello", false, "hello"},
    };
    for (const Row &row : rows) {
        const Outcome outcome = SetElementProperty(m, {row.element}, row.key, row.value);
        EXPECT_EQ(outcome.refused(), row.refused) << row.key << "=" << row.value;
        if (row.stored) {
            EXPECT_EQ(Cell(m, row.element, row.key), row.stored) << row.key;
        }
    }
    EXPECT_EQ(m.Element(ElementRowByName(m, "textbox"))[kKindColumn], "text:3")
        << "a text box's content never takes its kind's cell";
}

// What the property panel's editors and orrery edit set store: numbers within their range,
// refused in words that say the range.
TEST(SetElementProperty, NumbersAreHeldToTheirRanges) {
    ProjectModel m = NewProject();
    ASSERT_FALSE(AddElement(m, "Console", ElementKind::Label, "note").refused());
    ASSERT_FALSE(AddElement(m, "Console", ElementKind::Button, "gogo").refused());
    struct Row {
        const char *element, *key, *value;
        const char *refusal; // nullptr: stored as typed
    };
    const Row rows[] = {
        {"labelnote", "fontsize", "999", nullptr},
        {"labelnote", "fontsize", "0", "The font size is a whole number from 1 to 999."},
        {"labelnote", "forecolor", "16777215", nullptr},
        {"labelnote", "forecolor", "16777216",
         "The fore colour is a whole number from 0 to 16777215."},
        {"labelnote", "backcolor", "-1", "The back colour is a whole number from 0 to 16777215."},
        {"labelnote", "alignment", "2", nullptr},
        {"labelnote", "alignment", "3",
         "The alignment is a whole number from 0 to 2: 0 left, 1 right, 2 centre."},
        {"buttongogo", "alignment", "-1",
         "The alignment is a whole number from 0 to 2: 0 left, 1 right, 2 centre."},
        {"labelnote", "backstyle", "2",
         "The back style is a whole number from 0 to 1: 0 transparent, 1 opaque."},
        {"labelnote", "width", "0", nullptr},
        {"labelnote", "height", "-15", "The height is a whole number from 0 to 1000000."},
        {"labelnote", "width", "wide", "The width is a whole number from 0 to 1000000."},
        {"labelnote", "left", "-600", nullptr},
        {"labelnote", "top", "99999999", "The top is a whole number from -1000000 to 1000000."},
        {"labelnote", "fontbold", "yes", "Bold is True or False."},
    };
    for (const Row &row : rows) {
        const std::string before = Cell(m, row.element, row.key);
        const Outcome outcome = SetElementProperty(m, {row.element}, row.key, row.value);
        if (row.refusal) {
            EXPECT_EQ(outcome.refusal, (Message{"Error", row.refusal}))
                << row.key << "=" << row.value;
            EXPECT_EQ(Cell(m, row.element, row.key), before);
        } else {
            EXPECT_FALSE(outcome.refused()) << row.key << "=" << row.value;
            EXPECT_EQ(Cell(m, row.element, row.key), row.value);
        }
    }
}

TEST(SetElementProperties, ManyValuesOnManyElementsAreOneStepOrNone) {
    ProjectModel m = NewProject();
    ASSERT_FALSE(AddElement(m, "Console", ElementKind::Label, "note").refused());
    ASSERT_FALSE(AddElement(m, "Console", ElementKind::Button, "gogo").refused());
    const std::string before = FileText(m);
    const std::vector<std::string> both{"labelnote", "buttongogo"};
    Outcome font = SetElementProperties(m, both,
                                        {{"fontname", "Tahoma"},
                                         {"fontsize", "12"},
                                         {"fontbold", "true"},
                                         {"fontitalic", "False"},
                                         {"fontunderline", "True"}});
    ASSERT_FALSE(font.refused());
    EXPECT_EQ(font.change.name(), "Change Properties");
    for (const std::string &name : both) {
        EXPECT_EQ(Cell(m, name, "fontname"), "Tahoma");
        EXPECT_EQ(Cell(m, name, "fontbold"), "True");
    }
    font.change.Undo(m);
    EXPECT_EQ(FileText(m), before) << "one step";

    const Outcome refused =
        SetElementProperties(m, both, {{"fontname", "Tahoma"}, {"fontsize", "1000"}});
    EXPECT_TRUE(refused.refused());
    EXPECT_EQ(FileText(m), before) << "a refused value leaves the others unset";
    EXPECT_EQ(SetElementProperties(m, both, {{"backstyle", "1"}}).refusal,
              words::NoSuchProperty("button", "backstyle"));
}

TEST(PropertyItems, EntriesComeBackAsTheGameReadsThem) {
    using V = PropertyValueKind;
    const std::tuple<V, const char *, std::vector<std::string>, const char *> rows[] = {
        {V::ListItems, "alpha//beta//", {"alpha", "beta"}, "alpha//beta//"},
        {V::ListItems, "alpha////beta", {"alpha", "beta"}, "alpha//beta//"},
        {V::ListItems, "alpha//////beta", {"alpha"}, "alpha//"}, // two empty ones end the list
        {V::ListItems, "", {}, ""},
        {V::CommandList, " DIR (list) `` HELP`", {"DIR (list)", "HELP"}, "DIR (list)`HELP"},
    };
    for (const auto &[kind, stored, items, written] : rows) {
        EXPECT_EQ(PropertyItems(kind, stored), items) << stored;
        EXPECT_EQ(ItemsProperty(kind, items), written) << stored;
    }
    EXPECT_EQ(
        ItemsProperty(V::CommandList, PropertyItems(V::CommandList, words::kNewQonsoleCommands)),
        words::kNewQonsoleCommands)
        << "a new console's commands come back to the byte";
    EXPECT_EQ(ItemsProperty(V::ListItems, {"a:b", " "}), "a-b//") << "no colon, no blank item";
}

TEST(NudgeElements, ManyInOneStepAndNoSizeBelowNothing) {
    ProjectModel m = NewProject();
    Random random(1);
    ASSERT_FALSE(AddArray(m, "Console", ElementKind::Label, "12", random).refused());
    std::vector<std::string> names;
    for (int row = 1; row <= 12; ++row) names.push_back(m.Element(row)[kNameColumn]);
    const std::string before = FileText(m);
    Outcome moved = NudgeElements(m, Nudge::Right, names);
    Outcome again = NudgeElements(m, Nudge::Right, names);
    ASSERT_EQ(again.change.mergeKey(), moved.change.mergeKey()) << "held down, one step";
    EXPECT_NE(NudgeElements(m, Nudge::Left, names).change.mergeKey(), moved.change.mergeKey());
    NudgeElements(m, Nudge::Right, names);
    for (const std::string &name : names) EXPECT_EQ(Cell(m, name, "left"), "240");
    moved.change.Append(std::move(again.change));
    moved.change.Undo(m);
    EXPECT_EQ(FileText(m), before);

    ASSERT_FALSE(SetElementProperty(m, {names[0]}, "height", "100").refused());
    EXPECT_TRUE(NudgeElements(m, Nudge::Shorter, {names[0]}).change.empty());
    EXPECT_EQ(NudgeElements(m, Nudge::Up, {"labelnothing"}).refusal, words::kNoSuchElement);
    EXPECT_TRUE(NudgeElements(m, Nudge::Up, {}).change.empty()) << "nothing selected";
}

TEST(AlignElements, LinesThemUpWithTheFirst) {
    const std::tuple<Align, const char *, const char *> rows[] = {
        {Align::Left, "left", "600"},        {Align::Top, "top", "360"},
        {Align::Right, "left", "1200"},      {Align::Bottom, "top", "240"},
        {Align::SameWidth, "width", "1800"}, {Align::SameHeight, "height", "255"}};
    for (const auto &[align, key, value] : rows) {
        ProjectModel m = NewProject();
        ASSERT_FALSE(AddElement(m, "Console", ElementKind::Label, "first", {600, 360}).refused());
        ASSERT_FALSE(AddElement(m, "Console", ElementKind::Button, "second").refused());
        ASSERT_FALSE(AlignElements(m, align, {"labelfirst", "buttonsecond"}).refused());
        EXPECT_EQ(Cell(m, "buttonsecond", key), value) << key;
    }
    ProjectModel m = NewProject();
    ASSERT_FALSE(AddElement(m, "Console", ElementKind::Label, "first", {600, 360}).refused());
    ASSERT_FALSE(MoveElements(m, {"labelfirst"}, -700, 40).refused());
    EXPECT_EQ(Cell(m, "labelfirst", "left"), "-100");
    EXPECT_EQ(Cell(m, "labelfirst", "top"), "400");
}

TEST(AlignElements, SpacingKeepsTheOutermostAndEvensTheGaps) {
    ProjectModel m = NewProject();
    // Labels of one width at 0, 2000, 2300 and 9001, chosen in another order: the twip left
    // over goes to the first gap.
    const std::pair<const char *, std::int32_t> labels[] = {
        {"third", 2300}, {"first", 0}, {"last", 9001}, {"second", 2000}};
    std::vector<std::string> names;
    for (const auto &[name, left] : labels) {
        ASSERT_FALSE(AddElement(m, "Console", ElementKind::Label, name, {left, 600}).refused());
        names.push_back("label" + std::string(name));
    }
    ASSERT_FALSE(AlignElements(m, Align::SpaceAcross, names).refused());
    EXPECT_EQ(Cell(m, "labelfirst", "left"), "0");
    EXPECT_EQ(Cell(m, "labelsecond", "left"), "3001");
    EXPECT_EQ(Cell(m, "labelthird", "left"), "6001");
    EXPECT_EQ(Cell(m, "labellast", "left"), "9001");
    EXPECT_TRUE(AlignElements(m, Align::SpaceDown, {"labelfirst", "labellast"}).change.empty());
}

TEST(DeleteElements, TheRowsBehindCloseUpAndComeBackOnUndo) {
    ProjectModel m = NewProject();
    for (const char *name : {"one", "two", "three", "four"})
        ASSERT_FALSE(AddElement(m, "Console", ElementKind::Label, name).refused());
    const std::string before = FileText(m);
    const Outcome deleted = DeleteElements(m, {"labeltwo", "labelthree"});
    ASSERT_FALSE(deleted.refused());
    EXPECT_EQ(m.Element(2)[kNameColumn], "labelfour") << "no double gap hides the last row";
    deleted.change.Undo(m);
    EXPECT_EQ(FileText(m), before);
}

TEST(CopyProperties, PassesOverWhatTheKindLacksAndNeverMovesIt) {
    ProjectModel m = NewProject();
    ASSERT_FALSE(AddElement(m, "Console", ElementKind::Label, "source", {600, 600}).refused());
    ASSERT_FALSE(AddElement(m, "Console", ElementKind::Button, "target").refused());
    ASSERT_FALSE(SetElementProperty(m, {"labelsource"}, "backstyle", "1").refused());
    ASSERT_FALSE(SetElementProperty(m, {"labelsource"}, "forecolor", "255").refused());
    ASSERT_FALSE(PasteProperties(m, CopyProperties(m, "labelsource"), {"buttontarget"}).refused());
    EXPECT_EQ(Cell(m, "buttontarget", "forecolor"), "255");
    EXPECT_EQ(Cell(m, "buttontarget", "width"), "1800");
    EXPECT_EQ(Cell(m, "buttontarget", "backstyle"), "<none>");
    EXPECT_EQ(Cell(m, "buttontarget", "left"), "0");
}

TEST(AddQombo, EachTypeIsOneStepAtItsPlace) {
    for (int type = 1; type <= kQomboTypes; ++type) {
        ProjectModel m = NewProject();
        const std::string before = FileText(m);
        const Outcome outcome = AddQombo(m, "Console", type, {400, 520});
        ASSERT_FALSE(outcome.refused()) << type;
        EXPECT_GT(m.elementCount, 0) << type;
        EXPECT_EQ(PropertyValue(m.Element(1), "left"), "400") << type;
        outcome.change.Undo(m);
        EXPECT_EQ(FileText(m), before) << type;
    }
    ProjectModel m = NewProject();
    EXPECT_TRUE(AddQombo(m, "Console", 8, {}).refused());
    ASSERT_FALSE(AddQombo(m, "Console", 1, {}).refused());
    EXPECT_FALSE(AddQombo(m, "Console", 1, {}).refused()) << "a second one takes other names";
}

} // namespace
} // namespace orrery

namespace orrery {
namespace {

// A session's worth of steps on the demo game, undone one by one back to the file it began
// with, and redone to the file it ended with.
TEST(EditorSession, ASequenceOfStepsUndoesToTheFirstByteAndRedoesToTheLast) {
    ProjectModel m;
    const std::filesystem::path content =
        std::filesystem::path(ORRERY_TEST_DATA).parent_path().parent_path() / "content" / "app";
    ASSERT_TRUE(LoadProject(m, AppPaths(content), "Night Shift").found);
    Random random(11);
    const std::string first = FileText(m);
    const std::vector<std::function<Outcome()>> steps{
        [&] {
            return AddElement(m, "Connector", ElementKind::Label, "tipline", {120, 3000});
        },
        [&] { return AddArray(m, "Mail", ElementKind::Button, "4", random); },
        [&] {
            return DeleteElements(m, {"listlog", "labeltipline"});
        },
        [&] {
            return NudgeElements(m, Nudge::Down, {"textaddress", "buttonconnect"});
        },
        [&] { return SetElementProperty(m, {"textaddress"}, "width", "3000"); },
        [&] {
            return AddQombo(m, "Cracker", 4, {0, 0});
        },
        [&] { return PasteProperties(m, CopyProperties(m, "buttonconnect"), {"textpasscode"}); },
        [&] { return AddElement(m, "Console", ElementKind::Text, "spare"); },
    };
    std::vector<Change> done;
    for (const auto &step : steps) {
        Outcome outcome = step();
        ASSERT_FALSE(outcome.refused()) << done.size() << ": " << outcome.refusal->text;
        done.push_back(std::move(outcome.change));
    }
    const std::string last = FileText(m);
    for (auto change = done.rbegin(); change != done.rend(); ++change) change->Undo(m);
    EXPECT_EQ(FileText(m), first);
    for (const Change &change : done) change.Redo(m);
    EXPECT_EQ(FileText(m), last);
}

} // namespace
} // namespace orrery
