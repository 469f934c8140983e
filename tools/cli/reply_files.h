// The stored replies that the command line names, one file after another.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace zr::cli {

/// Walks through files, and folders with everything below them: what is called *.xml, in any letter
/// case, each folder's entries in byte order and sub-folders in their place among them. Hidden
/// entries and links to folders are passed over, as is what is called *.xml and is a pipe or a
/// device.
class ReplyFiles {
  public:
    explicit ReplyFiles(std::vector<std::string> names) : names_(std::move(names)) {}

    /// The next file; false at the end. Throws MisuseError for a folder that cannot be read.
    bool next(std::string& path);

    /// Pipes and devices that were passed over so far.
    const std::vector<std::string>& passed_over() const { return passed_over_; }

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
    std::vector<std::string> passed_over_;
};

bool is_folder(const std::string& path);

}  // namespace zr::cli
