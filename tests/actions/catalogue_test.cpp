// The action catalogue: its agreement with the dispatcher, its list items and parameter kinds.
#include "actions/catalogue.h"
#include "actions/statement.h"
#include "foundation/text.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>

namespace orrery {
namespace {

TEST(Catalogue, StatementsAreDispatchedAndOnlyReturnIsUnlisted) {
    std::size_t count = 0;
    const std::string_view *names = DispatchNames(count);
    const std::set<std::string_view> dispatched(names, names + count);
    for (const CatalogueEntry &entry : Catalogue()) {
        const bool isStatement = entry.kind != ActionKind::Control;
        EXPECT_EQ(dispatched.contains(LowerCase(entry.name)), isStatement) << entry.name;
        // The editor shows the target list for names holding "return".
        EXPECT_EQ(entry.kind == ActionKind::Value, NormTextContains(entry.name, "return"))
            << entry.name;
    }
    for (const std::string_view name : dispatched)
        EXPECT_EQ(FindCatalogueEntry(name) == nullptr, name == "return") << name;
    EXPECT_EQ(CatalogueOfKind(ActionKind::Control).size(), 2u);
}

TEST(Catalogue, EntriesAreFoundByNormalisedNameAndWrittenAsListItems) {
    const std::pair<const char *, const char *> cases[] = {
        {" return_Ask ",
         "RETURN_ASK [:QUESTION] [:ANSWER-OPTION-1] [:ANSWER-OPTION-2] [:EXIT-ON-NO+CANCEL+CLOSE]"},
        {"QLOB_COUNTER", "QLOB_COUNTER [:QLOB-FINALE] [:QLOB-INTERVAL] [:START-VARIABLE] "
                         "[:SPEED-MS*10] [:AUDIO]"},
        {"QLOB_COUNTER_KILL", "QLOB_COUNTER_KILL [:QLOB] [:RUN-ANOTHER-QLOB?]"},
        {"move", "MOVE [:TOOL] [:LEFT] [:TOP] [:REVERSE-LEFT] [:REVERSE-TOP]"},
        {"_FOR", "_FOR [:START-VAL] [:STOP-VAL]"},
        {"EXIT_GAME", "EXIT_GAME"},
    };
    for (const auto &[name, text] : cases) {
        const CatalogueEntry *entry = FindCatalogueEntry(name);
        ASSERT_NE(entry, nullptr) << name;
        EXPECT_EQ(entry->Text(), text);
    }
    for (const char *absent : {"RETURN", "FOR", "NEXT", "", "RETURN_MI"})
        EXPECT_EQ(FindCatalogueEntry(absent), nullptr) << absent;
}

TEST(Catalogue, ListHasSeparatorsBetweenGroupsAndFilters) {
    struct Case {
        CatalogueFilter filter;
        std::size_t items;
        std::size_t separators;
    };
    const Case cases[] = {
        {CatalogueFilter::All, 74, 12},
        {CatalogueFilter::Returns, 22, 0},
        {CatalogueFilter::NonReturns, 52, 12},
    };
    for (const Case &c : cases) {
        const std::vector<std::string> items = CatalogueItems(c.filter);
        EXPECT_EQ(items.size(), c.items);
        EXPECT_EQ(std::ranges::count(items, ""), static_cast<std::ptrdiff_t>(c.separators));
    }
    const std::vector<std::string> all = CatalogueItems();
    EXPECT_EQ(all.front(), "RETURN_COMPLEX [:VALUE]");
    EXPECT_EQ(all[8], "");
    EXPECT_EQ(all[9], "RETURN_IP [:HOSTNAME-OR-IP]");
    EXPECT_EQ(all.back(), "Z_WIDTH_LESS [:TOOL]");
}

TEST(Catalogue, ParamKindIsTheFirstRuleTheLabelMeets) {
    const std::pair<const char *, ParamKind> cases[] = {
        {"[:TOOL]", ParamKind::Tool},
        {":TOOLS", ParamKind::General}, // "tool" must be the whole label
        {"[:RUN-ANOTHER-QLOB?]", ParamKind::Qlob},
        {"[:QLOB-VARIABLE]", ParamKind::Qlob}, // qlob is tested before variable
        {"[:EXIT-ON-NO+CANCEL+CLOSE]", ParamKind::ExitOn},
        {"[:EXIT-IF-FALSE]", ParamKind::General},
        {"[:VARIABLE-TO-CHARGE]", ParamKind::Variable},
        {"[:ELEMENT-EXCEPTION2]", ParamKind::Element},
        {"[:REVERSE-TOP]", ParamKind::Boolean},
        {"[:FILENAME]", ParamKind::General},
        {"[:OPERATOR]", ParamKind::Operator},
        {"[:SERVER-PROPERTY]", ParamKind::ServerProperty},
        {"IMAGE", ParamKind::Image},
    };
    for (const auto &[label, kind] : cases) EXPECT_EQ(ParamKindOf(label), kind) << label;
}

TEST(Catalogue, EveryParameterHasTheKindItIsListedWith) {
    std::map<ParamKind, int> counts;
    for (const CatalogueEntry &entry : Catalogue())
        for (std::size_t i = 0; i < entry.ParamCount(); ++i) ++counts[ParamKindOf(entry.labels[i])];
    const std::map<ParamKind, int> listed = {
        {ParamKind::Tool, 20},    {ParamKind::Qlob, 8},     {ParamKind::ExitOn, 1},
        {ParamKind::Variable, 2}, {ParamKind::Console, 1},  {ParamKind::Element, 10},
        {ParamKind::List, 3},     {ParamKind::Boolean, 2},  {ParamKind::Color, 4},
        {ParamKind::File, 1},     {ParamKind::Audio, 3},    {ParamKind::ServerProperty, 1},
        {ParamKind::Image, 1},    {ParamKind::General, 43},
    };
    EXPECT_EQ(counts, listed);
}

TEST(Catalogue, FixedChoicesAndReferenceTextAreExact) {
    using Choices = std::vector<std::string_view>;
    auto choices = [](ParamKind kind) {
        const auto span = ParamChoices(kind);
        return Choices(span.begin(), span.end());
    };
    EXPECT_EQ(choices(ParamKind::ExitOn), (Choices{"Disabled", "Enabled"}));
    EXPECT_EQ(choices(ParamKind::Boolean), (Choices{"false", "true"}));
    EXPECT_EQ(choices(ParamKind::Operator),
              (Choices{"AND", "NOT USED", "+", "-", "*", "/", "NOT USED"}));
    EXPECT_TRUE(choices(ParamKind::Tool).empty());

    EXPECT_EQ(kSpecialVariablesCaption, "Special Variables");
    const auto lines = SpecialVariablesLines();
    ASSERT_EQ(lines.size(), 13u);
    EXPECT_EQ(lines[7], "$randomsaverageword - will be replaced with a random average length word");
    const std::string text = SpecialVariablesText();
    EXPECT_TRUE(text.starts_with("These work with the RETURN_COMPLEX function, and others.\r\n\r\n"
                                 "$playername - will be replaced with the current players name\r\n"
                                 "\r\n$randomname"));
    EXPECT_TRUE(text.ends_with("and 1000\r\n\r\n(?) - will be replaced with the array index of the "
                               "clicked item (complex)\r\n"));
}

} // namespace
} // namespace orrery
