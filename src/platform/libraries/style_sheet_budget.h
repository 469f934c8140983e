// What one run of a style sheet may use: time, tree nodes, text, XPath work. The library has no
// such bounds, so every instruction of a sheet, and the functions that work on strings, ask here
// first.
#pragma once

#include <libxslt/xsltInternals.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace zr {

/// The most that a sheet may write, and the longest text that it may make.
inline constexpr std::size_t kMostSheetOutput = std::size_t{64} << 20;

/// What is said of a sheet that writes more.
std::string too_much_output();

/// While one lives, nodes that this thread makes and frees are counted.
class SheetBudget {
  public:
    /// For a run over a document of this size.
    explicit SheetBudget(std::size_t input_bytes);
    ~SheetBudget();
    SheetBudget(const SheetBudget&) = delete;
    SheetBudget& operator=(const SheetBudget&) = delete;

    /// Puts the questions before the instructions of a compiled sheet.
    static void guard(xsltStylesheetPtr sheet);

    /// Puts this budget on a run of such a sheet.
    void govern(xsltTransformContextPtr context);

    /// True while the run may go on; it is stopped otherwise.
    bool admit();

    /// Folds the page after every so many nodes; see fold_finished.
    void fold();

    /// Bytes that were folded, less than what the run has written.
    std::size_t folded() const { return folded_; }

    /// The run has ended, and its context with it.
    void release() { context_ = nullptr; }

    /// As admit, for so many nodes and bytes of text more.
    bool admit_nodes(std::size_t nodes, std::size_t bytes);

    /// Which bound was passed; "" when none was.
    const std::string& reason() const { return reason_; }

    /// True when an allocation failed.
    bool memory_ended() const { return memory_ended_; }

    /// The budget of a run.
    static SheetBudget& of(xsltTransformContextPtr context) {
        return *static_cast<SheetBudget*>(context->_private);
    }

  private:
    static void count_node(xmlNodePtr node);
    static void forget_node(xmlNodePtr node);
    bool stop(std::string reason);

    xsltTransformContextPtr context_ = nullptr;
    double seconds_;
    double look_again_;  // the clock's time before which no processor time has to be asked for
    double started_;     // in the thread's processor time
    std::int64_t most_nodes_;
    std::int64_t nodes_ = 0;
    std::size_t most_text_;
    std::size_t text_ = 0;
    bool folds_ = false;
    std::int64_t nodes_when_folded_ = 0;
    std::size_t folded_ = 0;  // bytes
    bool memory_ended_ = false;
    std::string reason_;
    SheetBudget* outer_;
    xmlRegisterNodeFunc outer_count_;
    xmlDeregisterNodeFunc outer_forget_;
};

}  // namespace zr
