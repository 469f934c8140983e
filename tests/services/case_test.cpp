// Runs the cases: sets a facade up as the case says, runs the operation, and compares every section
// that the case has.
#include <gtest/gtest.h>

#include "case_run.h"

namespace zr::test {
namespace {

class Case : public testing::TestWithParam<std::size_t> {};

TEST_P(Case, ReadsAsExpected) {
    const CaseFile& file = all_cases().at(GetParam());
    CaseRun run(file);
    const bool result = run.run();
    EXPECT_EQ(result ? "True\n" : "False\n", file.has("result") ? file.section("result") : "True\n")
        << run.actual("message");
    for (const auto& [section, expected] : file.sections) {
        if (section != "reply" && section != "result") {
            EXPECT_EQ(run.actual(section), expected) << "section [" << section << "]";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, Case, testing::Range(std::size_t{0}, all_cases().size()),
                         [](const auto& parameter) {
                             return all_cases().at(parameter.param).name;
                         });

}  // namespace
}  // namespace zr::test
