// Tables of tests as text. A file has, behind a few words, tables:
//   [Title]
//   name = value      a setting of the table
//   input => output   a row
// Line breaks, tabs and backslashes inside a value are written \r \n \t \\, a blank at an end \s.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zr::test {

inline std::vector<std::string_view> split(std::string_view text, std::string_view separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return parts;
        }
        text.remove_prefix(end + separator.size());
    }
}

inline std::string read_file(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + path.string());
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

struct TextTable {
    struct Row {
        std::string input;
        std::string output;
    };
    std::string title;
    std::map<std::string, std::string, std::less<>> settings;
    std::vector<Row> rows;

    /// "" for one that the table does not have.
    std::string_view setting(std::string_view name) const {
        const auto found = settings.find(name);
        return found == settings.end() ? std::string_view() : found->second;
    }
    /// The title as a test may be called.
    std::string name() const {
        std::string name = title;
        std::erase_if(name, [](char c) { return c == '\'' || c == ','; });
        std::ranges::replace(name, ' ', '_');
        return name;
    }
    /// The text in place of the % of the setting "around", where there is one.
    std::string around(const std::string& text) const {
        std::string result(setting("around"));
        const std::size_t at = result.find('%');
        return result.empty()            ? text
               : at == std::string::npos ? result
                                         : result.replace(at, 1, text);
    }
};

inline void read_line(std::string_view line, std::vector<TextTable>& tables) {
    constexpr std::string_view kArrow = "=> ";
    const std::size_t arrow = line.find(kArrow);
    if (line.starts_with('[')) {
        tables.push_back({std::string(line.substr(1, line.size() - 2)), {}, {}});
    } else if (tables.empty() || line.empty()) {
        return;
    } else if (arrow != std::string_view::npos) {
        std::string input(line.substr(0, arrow));
        if (!input.ends_with("| ")) {
            input.pop_back();
        }
        tables.back().rows.push_back({input, std::string(line.substr(arrow + kArrow.size()))});
    } else {
        const std::size_t equals = line.find(" = ");
        tables.back().settings.emplace(line.substr(0, equals), line.substr(equals + 3));
    }
}

/// The tables of every file in a folder of the tests' data.
inline std::vector<TextTable> text_tables(const std::string& folder) {
    std::vector<TextTable> tables;
    const std::filesystem::path path = std::filesystem::path(ZR_TEST_DATA) / folder;
    for (const auto& entry : std::filesystem::directory_iterator(path)) {
        const std::string text = read_file(entry.path());
        std::vector<TextTable> own;
        for (const std::string_view line : split(text, "\n")) {
            read_line(line, own);
        }
        std::ranges::move(own, std::back_inserter(tables));
    }
    return tables;
}

constexpr std::pair<char, char> kEscapes[] = {
    {'\r', 'r'}, {'\n', 'n'}, {'\t', 't'}, {'\\', '\\'}, {' ', 's'}};

inline std::string unescaped(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto* escape = std::end(kEscapes);
        if (text[at] == '\\' && at + 1 < text.size()) {
            escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                  [&](auto row) { return row.second == text[at + 1]; });
        }
        if (escape == std::end(kEscapes)) {
            result += text[at];
        } else {
            result += escape->first;
            ++at;
        }
    }
    return result;
}

}  // namespace zr::test
