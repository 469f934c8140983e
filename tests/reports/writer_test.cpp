// What pieces of a line write, and what cannot be said of them at all.
#include "reports/writer.h"

#include <gtest/gtest.h>

#include <array>

#include "records/component.h"
#include "reports/description.h"
#include "values/convert.h"

namespace zr::layout {
namespace {

struct Written {
    std::string lines;
    explicit Written(Section section, const std::string& records,
                     MissingAmounts missing = MissingAmounts::kZero) {
        XmlNames names;
        const Sections sections{std::move(section)};
        const CompiledLayout layout(sections, names, missing);
        const auto document =
            std::get<XmlDocument>(XmlDocument::parse("<d>" + records + "</d>", names));
        const ReportFormats formats({"yyyy-mm-dd", "0.00", "$0.00", Region::kAustralia});
        ReportLines elements;
        const auto tables = Component::make<CodeTableCollection>();
        const CodeRow colours[] = {{"R", "Red"}};
        Component::add(*tables, "Colours", colours, false);
        ReportWriter(
            layout, formats, [&](std::string_view name) { return tables->find(name); }, elements,
            *convert::to_date("1970-01-02"))
            .write(std::array{document.root()}, "");
        for (const ResponseElement& line : elements) {
            lines += lines.empty() ? "" : "\n";
            lines.append(line.ResponseSubGroup()).append("|").append(line.ResponseName());
            lines.append("|").append(line.ResponseDescription());
        }
    }
};

std::string written(const Text& value, const std::string& record,
                    MissingAmounts missing = MissingAmounts::kZero) {
    std::string text =
        Written({plain("G"), "S", "d/r", {line("L", value)}}, "<r>" + record + "</r>", missing)
            .lines;
    return text.starts_with("S|L|") ? text.substr(4) : text;
}

Text joined() {
    return {text_at("a").joined("-"), text_at("b").joined("-"), text_at("c").joined("-")};
}
Text role() {
    return all({text_at("a"), text_at("b").within(" (", ")").unless("b", "X")}).if_any_value();
}
Text amount() { return {"at", amount_at(Form::kMoneySymbol, "a").if_amount().joined(" for ")}; }
Text birth() { return {text_at("b"), date_at("a").within(" born ").if_other_birth()}; }
Text listed() { return each_at("a", {text_at("."), text_at("@k").within("=").if_value()}, "; "); }
Text chosen() {
    return choice_at("@k", {{"", "none"}, {"y", text_at("a")}, otherwise(text_at("@k"))});
}
Text coloured() { return lookup_at("Colours", "@k"); }

TEST(Writer, WritesPiecesWhoseConditionsHold) {
    const struct {
        Text value;
        const char* record;
        const char* expected;
    } rows[] = {
        {joined(), "<a>1</a><b>2</b><c>3</c>", "1-2-3"},
        {joined(), "<b>2</b><c>3</c>", "2-3"},  // the first piece is left out: so is its separator
        {joined(), "<a>1</a><b/><c>3</c>", "1-3"},
        {joined(), "<b> </b>", ""},
        {role(), "<a>T</a><b>x</b>", "T"},
        {role(), "<a>T</a><b>y</b>", "T (y)"},
        {role(), "<a>T</a>", "T ()"},
        {role(), "", ""},  // never the brackets alone
        {amount(), "<a>12</a>", "at for $12.00"},
        {amount(), "<a>0</a>", "at"},
        {birth(), "<b>B</b><a>1970-01-02</a>", "B"},
        {birth(), "<b>B</b><a>1971-01-02</a>", "B born 1971-01-02"},
        {listed(), "<a>1</a><a/><a k='v'>2</a>", "1; 2=v"},
        {listed(), "", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(written(row.value, row.record), row.expected)
            << describe(row.value) << " of " << row.record;
    }
}

TEST(Writer, ReadsTheRecordItself) {
    const auto of_record = [](const Text& value, const std::string& record) {
        return Written({plain("G"), "S", "d/r", {line("L", value)}}, record).lines;
    };
    EXPECT_EQ(of_record(chosen(), "<r><a>1</a></r>"), "S|L|none");
    EXPECT_EQ(of_record(chosen(), "<r k='y'><a>1</a></r>"), "S|L|1");
    EXPECT_EQ(of_record(chosen(), "<r k='z'><a>1</a></r>"), "S|L|z");
    EXPECT_EQ(of_record(coloured(), "<r k='R'/>"), "S|L|Red");
}

TEST(Writer, ShowsMissingAmountsAsTheReportDoes) {
    const Text money = amount_at(Form::kMoney, "a");
    EXPECT_EQ(written(money, "<a/>"), "0.00");
    EXPECT_EQ(written(money, "<a/>", MissingAmounts::kNoLine), "");
    const Text number = amount_at(Form::kNumberText, "a");
    EXPECT_EQ(written(number, "<a>high</a>"), "high");
}

TEST(Writer, NumbersRecordsAndMergesRuns) {
    const std::string records = "<r i='07'>a</r><r i='7'>b</r><r i='8'>c</r>";
    const Lines lines{line("L", each_of_run({text_at(".")}, "+"))};
    EXPECT_EQ(Written({plain("G"), numbered("N"), "d/r", lines}, records).lines,
              "N 1|L|a\nN 2|L|b\nN 3|L|c");
    EXPECT_EQ(
        Written(Section{plain("G"), with_id("N", "@i"), "d/r", lines}.merging(Runs::kById), records)
            .lines,
        "N 7|L|a+b\nN 8|L|c");
    EXPECT_EQ(Written(Section{plain("G"), "N", "d/r", lines}.unless_there_is("d/r"), records).lines,
              "");
}

// What makes no sense of a kind of piece does not compile.
template <class P>
concept CanAskForAmount = requires(P piece) {
    std::move(piece).if_amount();
};
template <class P>
concept CanAskForBirth = requires(P piece) {
    std::move(piece).if_other_birth();
};
template <class P>
concept CanBeJoined = requires(P piece) {
    std::move(piece).joined(" ");
};
template <class P>
concept CanAskForParts = requires(P piece) {
    std::move(piece).if_any_value();
};
static_assert(CanAskForAmount<Of<Amount>> && !CanAskForAmount<Of<Value>>);
static_assert(CanAskForBirth<Of<Date>> && !CanAskForBirth<Of<Lookup>>);
static_assert(CanBeJoined<Of<Value>> && !CanBeJoined<Of<Constant>>);
static_assert(CanAskForParts<Of<All>> && !CanAskForParts<Of<Value>>);

}  // namespace
}  // namespace zr::layout
