// What the style-sheet library asks of its process, answered one use at a time: files to load and
// a place for its complaints.
#pragma once

#include <libxml/tree.h>

#include <cstdarg>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "zrcreditbureau/error.h"

namespace zr {

/// A file that a compiled sheet was made from, as it was then.
struct SheetFile {
    std::string path;
    std::filesystem::file_time_type changed;
    std::uintmax_t size = 0;

    bool operator==(const SheetFile&) const = default;
};

/// The file as it is now; an empty size and time where there is none.
SheetFile look_at(const std::string& path);

/// While one lives, loads and complaints of the library on this thread are its; the library's hooks
/// pass everything else on to those that were there before. When none is left in the process, the
/// hooks are again those that were there, or those that the host has set meanwhile.
class SheetSession {
  public:
    /// For the use of the sheet in this file.
    explicit SheetSession(const std::string& sheet);
    ~SheetSession();
    SheetSession(const SheetSession&) = delete;
    SheetSession& operator=(const SheetSession&) = delete;

    /// Parses a file of the deployment. Throws PlatformError.
    xmlDocPtr load(const std::string& path, xmlDictPtr dictionary);

    /// As load, of an address that a sheet names; null, and a complaint, where it cannot be.
    xmlDocPtr load_named(const xmlChar* address, xmlDictPtr dictionary, bool is_sheet) noexcept;

    /// A piece of what the library writes about an error.
    void complain(const char* format, std::va_list arguments) noexcept;

    /// The first complaint, or "" when there was none.
    std::string complaint() const;

    /// The same without what stands in quotes, which at run time can be from the document.
    std::string discreet_complaint() const;

    /// True when the library has said that it could not allocate.
    bool memory_ended() const { return memory_ended_; }

    /// True when the sheet has asked for a file that is not its neighbour.
    bool has_strayed() const { return has_strayed_; }

    const std::vector<SheetFile>& files() const { return files_; }

    /// For the library's own signatures.
    static void complain_to(void* session, const char* format, ...)
        __attribute__((format(printf, 2, 3)));

  private:
    static void report(void* session, xmlErrorPtr error);
    static void remark(void* session, const char* format, ...)
        __attribute__((format(printf, 2, 3)));
    void note(const char* what) noexcept;
    bool is_neighbour(const std::string& path) const;

    std::filesystem::path folder_;
    bool memory_ended_ = false;
    bool has_strayed_ = false;
    std::vector<SheetFile> files_;
    std::string where_;
    std::string what_;
    bool awaits_text_ = false;
    SheetSession* outer_;
    xmlStructuredErrorFunc outer_report_;
    void* outer_report_context_;
    xmlGenericErrorFunc outer_remark_;
    void* outer_remark_context_;
};

}  // namespace zr
