// What is written: standard output, or a file that appears when it is complete.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "cli/failure.h"

namespace zr::cli {

/// Readable by its owner only: what holds personal data.
inline constexpr mode_t kPrivate = 0600;

/// What an output's path names.
enum class Place {
    kStandardOutput,  ///< "" or "/dev/stdout"
    kInPlace,         ///< a device or a pipe, which is written where it is
    kFile,            ///< a file, there or not
};

/// Throws OutputError for a folder, and for a symbolic link to a file: whoever made the link would
/// choose what is overwritten.
Place place_of(const std::string& path);

/// Throws MisuseError where both are the same file, under whatever names. A device may be both.
void refuse_same_file(const std::string& input, const std::string& output);

/// Standard output, or a file that has no name, or another one, until it is complete: what was
/// there before stays until then, and a run that is killed leaves nothing behind.
class Output {
  public:
    /// Standard output for an empty path. A new file gets this mode, a file replaced keeps its own.
    /// Throws OutputError.
    explicit Output(const std::string& path, mode_t mode = kPrivate);
    /// A file that is open already under the other name, and stays under it while incomplete.
    Output(std::string path, std::string temporary_path, int descriptor);
    /// Removes an incomplete file, unless it is to stay.
    ~Output();
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// These throw OutputError, BrokenPipe among them.
    void write(std::string_view text);
    void flush();
    /// What was written is on the device, where the output is a file: it outlives the machine.
    void sync();
    /// Everything is written: a file is synced and takes its name.
    void finish();

    /// Fails where a file has no room for a result of usual size.
    void need_room();
    /// Takes back what was written to a file since the last sync: half a result is none.
    void take_back();

  private:
    bool open_nameless(mode_t mode);
    void open_named(mode_t mode);
    void give_name();
    void send(std::string_view rest);
    [[noreturn]] void fail(int error) const;

    std::string path_;            ///< "" for standard output
    std::string temporary_path_;  ///< "" where it has no name, or is written in place
    int descriptor_ = 1;          // standard output
    bool replaces_ = false;       ///< takes the place of `path_` when it is complete
    bool stays_ = false;
    std::uint64_t unsynced_ = 0;  ///< bytes
    std::string pending_;
};

}  // namespace zr::cli
