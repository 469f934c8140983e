// The stored replies that the command line names, one file after another.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace zr::cli {

/// Walks through files, and folders with everything below them: what is called *.xml, in any letter
/// case, each folder's entries in byte order and sub-folders in their place among them. Hidden
/// entries and links to folders are passed over. Only the names of the folders that lead to the
/// present file are held.
class ReplyFiles {
  public:
    explicit ReplyFiles(std::vector<std::string> names) : names_(std::move(names)) {}

    /// The next file; false at the end. Throws MisuseError for a folder that cannot be read.
    bool next(std::string& path);

  private:
    struct Entry {
        std::string name;
        bool folder;
    };
    struct Folder {
        std::string path;  ///< ends with "/"
        std::vector<Entry> entries;
        std::size_t at = 0;
    };

    void enter(std::string path);

    std::vector<std::string> names_;
    std::size_t at_ = 0;
    std::vector<Folder> open_;
};

bool is_folder(const std::string& path);

}  // namespace zr::cli
