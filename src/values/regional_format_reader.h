// Reads a format pattern piece by piece, so that quoting means the same in every kind of pattern.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace zr {

class PatternReader {
  public:
    /// One character of the pattern, or a literal: quoted text or an escaped character.
    struct Piece {
        bool literal;
        std::string_view text;
    };

    explicit PatternReader(std::string_view pattern) : rest_(pattern) {}

    bool done() const { return rest_.empty(); }
    std::string_view rest() const { return rest_; }
    void skip(std::size_t count) { rest_.remove_prefix(count); }

    /// The next piece; not to be called when done. Quoted text without a closing quote runs to the
    /// end, and a backslash at the end stands for itself.
    Piece next() {
        const char lead = rest_.front();
        if (lead == '"') {
            const std::size_t close = std::min(rest_.find('"', 1), rest_.size());
            const std::string_view content = rest_.substr(1, close - 1);
            skip(std::min(close + 1, rest_.size()));
            return {true, content};
        }
        const std::size_t offset = lead == '\\' && rest_.size() > 1 ? 1 : 0;
        const std::string_view character = rest_.substr(offset, 1);
        skip(offset + 1);
        return {offset != 0, character};
    }

  private:
    std::string_view rest_;
};

}  // namespace zr
