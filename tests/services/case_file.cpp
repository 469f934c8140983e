#include "case_file.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace zr::test {
namespace {

CaseFile parse(const std::filesystem::path& path) {
    CaseFile result;
    result.name = path.stem().string();
    const std::string text = read_file(path);
    std::string section;  // "": the opening words
    for (const std::string_view line : split(text, "\n")) {
        if (line.starts_with('[') && line.ends_with(']')) {
            section = line.substr(1, line.size() - 2);
            result.sections[section];
        } else if (section == "given") {
            const std::size_t equals = line.find(" = ");
            if (equals == std::string_view::npos && !line.empty()) {
                throw std::runtime_error(result.name + ": no value in: " + std::string(line));
            }
            if (!line.empty()) {
                result.given.emplace_back(line.substr(0, equals),
                                          unescaped(line.substr(equals + 3)));
            }
        } else if (!line.empty()) {
            result.sections[section].append(line) += '\n';
        }
    }
    result.sections.erase("");
    result.sections.erase("given");
    return result;
}

}  // namespace

std::string_view CaseFile::section(std::string_view section_name) const {
    const auto found = sections.find(section_name);
    return found == sections.end() ? std::string_view() : found->second;
}

std::string_view CaseFile::given_value(std::string_view given_name) const {
    for (const auto& [key, value] : given) {
        if (key == given_name) {
            return value;
        }
    }
    return {};
}

std::string escaped(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool inner_blank = text[at] == ' ' && at != 0 && at + 1 != text.size();
        const auto* escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                          [&](auto row) { return row.first == text[at]; });
        if (inner_blank || escape == std::end(kEscapes)) {
            result += text[at];
        } else {
            result.append(1, '\\') += escape->second;
        }
    }
    return result;
}

const std::vector<CaseFile>& all_cases() {
    static const std::vector<CaseFile> cases = [] {
        std::vector<CaseFile> result;
        const std::filesystem::path folder = std::filesystem::path(ZR_TEST_DATA) / "services/cases";
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (entry.path().extension() == ".case") {
                result.push_back(parse(entry.path()));
            }
        }
        std::sort(result.begin(), result.end(),
                  [](const auto& left, const auto& right) { return left.name < right.name; });
        return result;
    }();
    return cases;
}

}  // namespace zr::test
