// An environment variable set, or taken away, while a test runs.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace zr::test {

class ScopedEnvironment {
  public:
    /// No value takes the variable away.
    ScopedEnvironment(std::string name, const std::optional<std::string>& value)
        : name_(std::move(name)) {
        if (const char* before = std::getenv(name_.c_str())) before_ = before;
        put(value);
    }
    ~ScopedEnvironment() { put(before_); }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

  private:
    void put(const std::optional<std::string>& value) {
        if (value)
            setenv(name_.c_str(), value->c_str(), 1);
        else
            unsetenv(name_.c_str());
    }

    std::string name_;
    std::optional<std::string> before_;
};

}  // namespace zr::test
