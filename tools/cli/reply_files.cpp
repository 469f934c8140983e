#include "cli/reply_files.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "cli/failure.h"
#include "values/text.h"

namespace zr::cli {
namespace {

constexpr std::string_view kEnding = ".xml";

bool is_reply_name(const std::string& name) {
    return name.size() > kEnding.size() &&
           text::equal_ignoring_case(std::string_view(name).substr(name.size() - kEnding.size()),
                                     kEnding);
}

[[noreturn]] void unreadable(const std::string& path, const std::error_code& error) {
    throw MisuseError("Cannot read " + path + ": " + error.message() + ".");
}

}  // namespace

bool is_folder(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_directory(path, error);
}

void ReplyFiles::enter(std::string path) {
    Folder folder{std::move(path), {}};
    std::error_code error;
    std::filesystem::directory_iterator entries(folder.path, error);
    if (error) {
        unreadable(folder.path, error);
    }
    for (const std::filesystem::directory_iterator end; entries != end; entries.increment(error)) {
        std::error_code ignored;
        std::string name = entries->path().filename().string();
        const std::filesystem::file_status status = entries->status(ignored);
        const bool is_folder = std::filesystem::is_directory(status);
        const bool below = is_folder && !entries->is_symlink(ignored);
        if (name.starts_with('.') || (!below && (is_folder || !is_reply_name(name)))) {
            continue;
        }
        if (std::filesystem::is_other(status)) {
            passed_over_.push_back(folder.path + name);
        } else {
            folder.entries.push_back({std::move(name), below});
        }
    }
    if (error) {
        unreadable(folder.path, error);
    }
    std::sort(folder.entries.begin(), folder.entries.end(),
              [](const Entry& left, const Entry& right) { return left.name < right.name; });
    open_.push_back(std::move(folder));
}

bool ReplyFiles::next(std::string& path) {
    for (;;) {
        if (open_.empty()) {
            if (at_ == names_.size()) {
                return false;
            }
            const std::string& name = names_[at_++];
            if (!is_folder(name)) {
                path = name;
                return true;
            }
            enter(name.ends_with('/') ? name : name + "/");
        } else if (Folder& folder = open_.back(); folder.at == folder.entries.size()) {
            open_.pop_back();
        } else {
            const Entry& entry = folder.entries[folder.at++];
            if (!entry.folder) {
                path.assign(folder.path).append(entry.name);
                return true;
            }
            enter(folder.path + entry.name + "/");  // `entry` and `folder` may move
        }
    }
}

}  // namespace zr::cli
