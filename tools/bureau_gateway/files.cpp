#include "bureau_gateway/files.h"

#include <fstream>
#include <stdexcept>
#include <string>

#include "bureau_gateway/crypto.h"

namespace zr::gateway {

void write_file_atomically(const std::filesystem::path& file, std::string_view text) {
    std::filesystem::path beside = file;
    beside += "." + random_hex(4) + ".new";
    std::error_code error;
    {
        std::ofstream stream(beside, std::ios::binary);
        stream << text;
        stream.close();
        if (!stream) {
            error = std::make_error_code(std::errc::io_error);
        }
    }
    if (!error) {
        std::filesystem::rename(beside, file, error);
    }
    if (error) {
        std::error_code ignored;
        std::filesystem::remove(beside, ignored);
        throw std::runtime_error("The file '" + file.string() + "' cannot be written.");
    }
}

}  // namespace zr::gateway
