// The outcome of one job on its way out: the report, and other forms of it in files beside it.
#pragma once

#include <functional>
#include <list>
#include <string>
#include <string_view>

#include "cli/commands.h"
#include "cli/output.h"

namespace zr::cli {

/// Writes a text, which then ends with a line break.
void write_document(Output& output, std::string_view document);

/// Writes a JSON document as it is made.
void write_json(Output& output, const std::function<void(automation::JsonWriter&)>& write);

/// What a table calls the one reply.
std::string source_of(const Invocation& invocation);

class Deliveries {
  public:
    /// Opens what is to be written: what cannot be fails before anything is sent. The reply comes
    /// first, from which all else can be made again. Throws OutputError.
    explicit Deliveries(const Invocation& invocation);

    /// Fails where a file has no room for a result of usual size.
    void need_room();
    /// Writes every form that the outcome has, and to standard error what is wrong with it; the
    /// exit status. Throws OutputError.
    int report(const Outcome& outcome);

  private:
    struct Delivery {
        Delivery(const Document& document, bool is_main)
            : format(document.format), main(is_main), output(document.path) {}

        Format format;
        bool main;
        Output output;
    };

    void deliver(Delivery& delivery, const Outcome& outcome);

    const Invocation& invocation_;
    std::list<Delivery> deliveries_;
};

}  // namespace zr::cli
