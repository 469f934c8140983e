// One line an exchange: time, path, service code, outcome. Never what a message says.
#pragma once

#include <filesystem>
#include <fstream>
#include <mutex>
#include <string_view>

namespace zr::gateway {

class ExchangeLog {
  public:
    /// Appends to the file; an empty name is no log. Throws std::runtime_error when it cannot.
    explicit ExchangeLog(const std::filesystem::path& file);

    void write(std::string_view path, std::string_view service_code, std::string_view outcome);

  private:
    std::mutex mutex_;
    std::ofstream stream_;
};

}  // namespace zr::gateway
