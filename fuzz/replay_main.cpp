// Runs a fuzz target over the files of the folders it is given, as an ordinary test does.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    std::size_t count = 0;
    for (int index = 1; index < argc; ++index) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[index])) {
            if (entry.is_regular_file()) {
                std::ifstream file(entry.path(), std::ios::binary);
                const std::string input{std::istreambuf_iterator<char>(file), {}};
                LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()),
                                       input.size());
                ++count;
            }
        }
    }
    std::printf("%zu inputs replayed\n", count);
    return count > 0 ? 0 : 1;
}
