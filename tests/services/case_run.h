// A facade set up as a case says, and what its operation made.
#pragma once

#include <string>
#include <string_view>

#include "case_file.h"
#include "support/fake_bureau.h"

namespace zr::test {

/// A value as the cases write it.
std::string shown(const Value& value);

class CaseRun {
  public:
    explicit CaseRun(const CaseFile& file);

    /// Runs the operation and gives its result.
    bool run();

    /// What a section of the case should read.
    std::string actual(std::string_view section);

    FakeBureau& bureau() { return bureau_; }

  private:
    std::string_view given(std::string_view name, std::string_view otherwise) const;
    bool is_of_new_zealand() const;
    void apply(const std::string& name, const std::string& value);

    const CaseFile& file_;
    FakeBureau bureau_;
};

}  // namespace zr::test
