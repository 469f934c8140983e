// The collections: code tables, the catalogue, report lines and company selections.
#include <gtest/gtest.h>

#include <algorithm>
#include <ranges>

#include "records/component.h"
#include "zrcreditbureau/code_tables.h"
#include "zrcreditbureau/company_selections.h"
#include "zrcreditbureau/error.h"
#include "zrcreditbureau/products.h"
#include "zrcreditbureau/response_elements.h"

namespace zr {
namespace {

template <class Action>
void expect_error(std::int32_t number, Action action) {
    try {
        action();
        ADD_FAILURE() << "raised nothing";
    } catch (const PlatformError& error) {
        EXPECT_EQ(error.number(), number);
    }
}

template <class Collection>
void expect_positions_only_inside(const Collection& collection) {
    for (const std::int32_t outside : {0, -1, collection.Count() + 1, 2147483647}) {
        expect_error(error_number::kItemNotFound, [&] { (void)collection.Item(outside); });
    }
}

std::shared_ptr<CodeTableItems> table_of(std::initializer_list<CodeRow> rows,
                                         bool allow_duplicates = false) {
    const auto table = Component::make<CodeTableItems>(allow_duplicates);
    for (const CodeRow& row : rows) {
        Component::add(*table, row);
    }
    return table;
}

TEST(CodeTable, LooksUpBothWays) {
    const auto made = table_of(
        {{"CRT", "Court"}, {"CT", "Court"}, {"AV", "Avenue"}, {"\u00C9", "\u00C9t\u00E9"}});
    const CodeTableItems& table = *made;
    const struct {
        const char* description;
        const char* code;
        const char* as_stored;
    } descriptions[] = {
        {"Court", "CRT", "Court"},
        {"cOURT", "CRT", "Court"},
        {" Court", "?", ""},
        {"\u00E9T\u00C9", "\u00C9", "\u00C9t\u00E9"},
        {"", "?", ""},
    };
    for (const auto& row : descriptions) {
        EXPECT_EQ(table.GetCodeFromDescription(row.description, "?"), row.code);
        EXPECT_EQ(table.ValidateDescription(row.description), row.as_stored);
    }
    EXPECT_EQ(table.GetCodeFromDescription("Lane"), "");
    EXPECT_EQ(table.GetDescriptionFromCode("av"), "Avenue");
    EXPECT_EQ(table.GetDescriptionFromCode("av "), "");
    EXPECT_EQ(table.GetDescriptionFromCode(""), "");
    EXPECT_EQ(table.Item("ct").Description(), "Court");
    EXPECT_EQ(table.Item(3).Code(), "AV");
    EXPECT_EQ(table.Count(), 4);
    expect_positions_only_inside(table);
    expect_error(error_number::kItemNotFound, [&] { (void)table.Item("LN"); });
}

TEST(CodeTable, FollowsWhatAHostWrites) {
    for (const bool allow_duplicates : {false, true}) {
        const auto made = table_of({{"A", "Alpha"}, {"B", "Beta"}}, allow_duplicates);
        const CodeTableItems& table = *made;
        table.Item(1).Description("First");
        table.Item(2).Code("C");
        EXPECT_EQ(table.GetDescriptionFromCode("a"), "First");
        EXPECT_EQ(table.GetDescriptionFromCode("c"), "Beta");
        EXPECT_EQ(table.GetDescriptionFromCode("B"), "");
        EXPECT_EQ(table.GetCodeFromDescription("beta"), "C");
        EXPECT_EQ(table.GetCodeFromDescription("Alpha", "?"), "?");
        EXPECT_EQ(table.ListCodes(), "A,B");
        if (!allow_duplicates) {
            EXPECT_EQ(&table.Item("C"), &table.Item(2));
            expect_error(error_number::kItemNotFound, [&] { (void)table.Item("B"); });
        }
    }
}

TEST(CodeTable, ListsItsRows) {
    EXPECT_EQ(table_of({})->ListCodes(), "");
    EXPECT_EQ(table_of({})->ListDescriptions(), "");
    const auto made = table_of({{"A", "Alpha"}, {"B", "Beta, second"}});
    const CodeTableItems& table = *made;
    EXPECT_EQ(table.ListCodes(), "A,B");
    EXPECT_EQ(table.ListDescriptions(), "Alpha,Beta, second");
}

TEST(CodeTable, AllowsTheSameCodeTwiceOnlyWhenToldTo) {
    const auto strict_table = table_of({{"A", "Alpha"}});
    CodeTableItems& strict = *strict_table;
    expect_error(error_number::kDuplicateKey, [&] { Component::add(strict, {"a", "Again"}); });
    EXPECT_EQ(strict.Count(), 1);
    EXPECT_EQ(strict.ListCodes(), "A");
    EXPECT_EQ(strict.ListDescriptions(), "Alpha");
    EXPECT_FALSE(strict.AllowDuplicateCodes());

    const auto lax_table = table_of({{"B", "Beta"}, {"A", "Alpha"}, {"a", "Again"}}, true);
    const CodeTableItems& lax = *lax_table;
    EXPECT_TRUE(lax.AllowDuplicateCodes());
    EXPECT_EQ(lax.GetDescriptionFromCode("a"), "Alpha");
    EXPECT_EQ(lax.GetCodeFromDescription("again"), "a");
    EXPECT_EQ(lax.ListCodes(), "B,A,a");
    EXPECT_EQ(lax.Item(3).Description(), "Again");
    expect_error(error_number::kItemNotFound, [&] { (void)lax.Item("A"); });
}

TEST(Products, AreKeyedWithoutRegardToLetterCase) {
    using Type = zreProductType;
    const auto made = Component::make<Products>();
    Products& products = *made;
    Component::add(products, "First", true, Type::zreProductTypeEnquiry, true);
    Product& second = Component::add(products, "second", false, Type::zreProductTypeDefault, false);
    expect_error(error_number::kDuplicateKey, [&] {
        Component::add(products, "SECOND", true, Type::zreProductTypeEnquiry, true);
    });
    EXPECT_EQ(products.Count(), 2);
    EXPECT_TRUE(products.Exists("FIRST"));
    EXPECT_FALSE(products.Exists(""));
    EXPECT_FALSE(products.Exists("third"));
    EXPECT_EQ(&products.Item("Second"), &second);
    EXPECT_EQ(&products.Item(2), &second);
    EXPECT_TRUE(products.Item(1).Individual());
    EXPECT_FALSE(products.Item(1).Company());
    EXPECT_TRUE(second.Company());
    EXPECT_FALSE(second.Available() || second.Chargeable() || second.Listable());
    expect_positions_only_inside(products);
    expect_error(error_number::kItemNotFound, [&] { (void)products.Item("third"); });
    expect_error(error_number::kItemNotFound, [&] { (void)products.Item(""); });

    Component::add(Component::options(second), "score", "Score?",
                   zreOptionType::zreOptionTypeBoolean);
    expect_error(error_number::kDuplicateKey, [&] {
        Component::add(Component::options(second), "Score", "",
                       zreOptionType::zreOptionTypeGeneral);
    });
    EXPECT_EQ(second.ProductOptions().Item("SCORE").Description(), "Score?");
    static_assert(std::ranges::random_access_range<Products>);
    EXPECT_EQ(products.begin()->ProductId(), "First");
    EXPECT_EQ(products.begin()[1].ProductId(), "second");
    EXPECT_EQ(products.end() - products.begin(), 2);
    EXPECT_EQ(&*std::ranges::find_if(products, &Product::Company), &second);
}

TEST(ReportLines, NumberTheirRunsOfGroups) {
    const struct {
        const char* group;
        const char* description;
        const char* sort;  // null: no line
    } cases[] = {
        {"", "first", "0000"}, {"A", "", nullptr},  {"A", "x", "0001A"},
        {"A", "y", "0001A"},   {"B", "", nullptr},  {"B", "x", "0002B"},
        {"A", "x", "0003A"},   {"a", "x", "0004a"}, {"", "x", "0005"},
    };
    ReportLines lines;
    for (const auto& row : cases) {
        const std::int32_t before = lines.Count();
        const ResponseElement* line = lines.AddElement(row.group, "s", "n", row.description);
        EXPECT_EQ(line != nullptr, row.sort != nullptr);
        EXPECT_EQ(lines.Count(), before + (row.sort != nullptr ? 1 : 0));
        if (line != nullptr) {
            EXPECT_EQ(line->ResponseGroupSort(), row.sort);
            EXPECT_EQ(&lines.Item(lines.Count()), line);
        }
    }
    expect_positions_only_inside(lines);
}

TEST(ReportLines, KeepTheirTextsAndCountPastFourDigits) {
    ReportLines lines;
    for (int at = 1; at <= 40000; ++at) {
        // Texts of the caller's that are gone at once.
        lines.AddElement("G" + std::to_string(at), "sub", "name", std::string(100, 'x'));
    }
    EXPECT_EQ(lines.Item(1).ResponseGroupSort(), "0001G1");
    EXPECT_EQ(lines.Item(9999).ResponseGroupSort(), "9999G9999");
    EXPECT_EQ(lines.Item(10000).ResponseGroupSort(), "10000G10000");
    EXPECT_EQ(lines.Item(40000).ResponseGroupSort(), "32767G40000");
    EXPECT_EQ(lines.Item(1).ResponseDescription(), std::string(100, 'x'));
    EXPECT_EQ(std::ranges::count(lines, "sub", &ResponseElement::ResponseSubGroup), 40000);
}

TEST(CompanySelections, LetHostsWriteTheBureauFile) {
    const auto selections = Component::make<CompanySelections>();
    const CompanySelection& first = Component::add(*selections);
    Component::add(*selections);
    const CompanySelections& seen_by_host = *selections;
    seen_by_host.Item(1).BureauFileId("42");
    EXPECT_EQ(first.BureauFileId(), "42");
    EXPECT_EQ(seen_by_host.Item(1).CompanyName(), "");
    EXPECT_EQ(seen_by_host.Item(2).CompanyNumber(), "");
    expect_positions_only_inside(seen_by_host);
}

}  // namespace
}  // namespace zr
