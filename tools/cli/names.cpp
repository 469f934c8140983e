#include "cli/names.h"

#include <vector>

namespace zr::cli {
namespace {

// Property names are ASCII.
bool is_upper(char letter) { return letter >= 'A' && letter <= 'Z'; }
char to_upper(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}
char to_lower(char letter) {
    return is_upper(letter) ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// A word starts at a capital behind a small letter, and at the last of several capitals where a
/// small letter follows.
bool starts_word(std::string_view name, std::size_t at) {
    if (at == 0 || !is_upper(name[at])) {
        return false;
    }
    return !is_upper(name[at - 1]) || (at + 1 < name.size() && !is_upper(name[at + 1]));
}

std::string joined(std::string_view name, char separator, char (*letter)(char)) {
    std::string result;
    for (std::size_t at = 0; at < name.size(); ++at) {
        if (starts_word(name, at)) {
            result += separator;
        }
        result += letter(name[at]);
    }
    return result;
}

}  // namespace

std::string option_name(std::string_view property) { return joined(property, '-', to_lower); }

std::string environment_name(std::string_view property) {
    return "ZR_" + joined(property, '_', to_upper);
}

std::string label(std::string_view property) {
    return joined(property, ' ', [](char letter) { return letter; });
}

}  // namespace zr::cli
