// What became of everything in a reply: read beside the translation that makes its report, and told
// once that is made.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "checks/source_map.h"
#include "services/reply_service.h"

namespace zr {

/// Something in a reply that a report does not tell, or tells as it should not.
struct Finding {
    enum class Kind : std::uint8_t {
        kNotShown,      ///< no line, field or count reads it
        kNotConverted,  ///< a line or count reads it, and it is not what it is read as
        kDisagreeing,   ///< two figures that should be one
        kEncoding,      ///< the text is not in the encoding that it says
    };
    Kind kind;
    std::string path;       ///< of the element, without positions; "" where it is the whole reply's
    std::string what{};     ///< what is wrong, in words that are the same for every reply
    std::string example{};  ///< and here; "" where nothing needs saying
    std::size_t times = 1;
    std::size_t line = 0;  ///< of the reply's text, where it is met first
};

/// Where a value of the report comes from.
struct Origin {
    std::string path;  ///< with positions
    TextPosition position;
};

/// Where everything in a report comes from.
struct Explanation {
    struct Field {
        std::string_view name;  ///< a property of the response
        std::vector<Origin> origins;
    };
    std::vector<Field> fields;
    /// Of each line of the response; none of one that is a constant.
    std::vector<std::vector<Origin>> lines;
};

/// Checks translations of stored replies of one kind of service, one at a time.
class ReplyCheck {
  public:
    enum class Depth : std::uint8_t {
        kFindings,
        kExplanation,  ///< tells where everything comes from too, which takes longer
    };

    /// For the service whose own translator this is.
    ReplyCheck(const Translator& translator, Depth depth);
    ~ReplyCheck();
    ReplyCheck(const ReplyCheck&) = delete;
    ReplyCheck& operator=(const ReplyCheck&) = delete;

    /// Watches what the service translates while this lives.
    class Watching {
      public:
        Watching(const ReplyCheck& check, ReplyService& service);
        ~Watching();
        Watching(const Watching&) = delete;
        Watching& operator=(const Watching&) = delete;

      private:
        const ReplyCheck& check_;
        ReplyService& service_;
    };

    /// Takes what there is to say of the reply that was translated last: every path and fault once,
    /// the first ten thousand of them.
    /// Nothing for one that could not be translated.
    std::vector<Finding> take_findings();
    Explanation take_explanation();

  private:
    class Watch;

    std::unique_ptr<Watch> watch_;
    Translator translator_;
};

}  // namespace zr
