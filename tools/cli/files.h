// What is read: whole files, and lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace zr::cli {

/// No file and no line of input may be larger.
inline constexpr std::size_t kLargestInput = std::size_t{256} << 20;

/// The whole of a file as UTF-8 text, without a byte-order mark; "-" is standard input. A
/// byte-order mark, else UTF-8, else the encoding that an XML declaration names says how it is
/// decoded. Throws MisuseError.
std::string read_text_file(const std::string& path);
/// The same, telling the encoding that it was in.
std::string read_text_file(const std::string& path, std::string& encoding);

/// The encoding that an XML declaration names; "" without one.
std::string declared_encoding(std::string_view xml);

/// A descriptor that is closed again.
class Descriptor {
  public:
    explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
    ~Descriptor();
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const { return descriptor_; }

  private:
    int descriptor_;
};

/// Opens a file, "-" for standard input, to read it. Throws MisuseError.
int open_file(const std::string& path);

/// Reads the lines of an input.
class LineReader {
  public:
    /// `before_waiting` is called before each read, which may wait for whoever writes the input;
    /// the input ends where it answers false, and after `limit` bytes.
    explicit LineReader(
        int descriptor, std::function<bool()> before_waiting = [] { return true; },
        std::uint64_t limit = std::numeric_limits<std::uint64_t>::max())
        : descriptor_(descriptor), before_waiting_(std::move(before_waiting)), left_(limit) {}

    /// The next line without its line feed, valid until the next call; false at the end. Throws
    /// MisuseError when the input cannot be read.
    bool next(std::string_view& line);

    /// True when the next line can be had without reading on.
    bool ready();

    /// True when the line just read was longer than kLargestInput; it is then empty.
    bool too_long() const { return too_long_; }

  private:
    /// False at the end of the input.
    bool fill();
    /// The line that ends at `end`, unless it is too long.
    void take_line(std::string_view& line, std::size_t end);

    int descriptor_;
    std::function<bool()> before_waiting_;
    std::uint64_t left_;  ///< bytes of the input that may still be read
    std::vector<char> buffer_;
    std::size_t begin_ = 0;  ///< of the line
    std::size_t scanned_ = 0;
    std::size_t end_ = 0;
    bool too_long_ = false;
    bool at_end_ = false;
};

}  // namespace zr::cli
