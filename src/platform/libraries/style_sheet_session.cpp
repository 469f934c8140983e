#include "platform/libraries/style_sheet_session.h"

#include <libexslt/exslt.h>
#include <libxml/uri.h>
#include <libxslt/documents.h>
#include <libxslt/xsltutils.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <mutex>
#include <new>
#include <string_view>
#include <system_error>

#include "platform/file_name.h"
#include "platform/libraries/xml_reader.h"
#include "platform/unicode.h"

namespace zr {

namespace {

thread_local SheetSession* current_session = nullptr;

// The process's hooks that were there before: the host may use the library too.
struct OuterHooks {
    std::atomic<xsltDocLoaderFunc> load;
    std::atomic<void (*)(void*, const char*, ...)> complain;
    std::atomic<void*> complain_context;
};
OuterHooks outer_hooks{};
std::mutex sessions_lock;
int sessions = 0;

xmlDocPtr load_hook(const xmlChar* address, xmlDictPtr dictionary, int options, void* context,
                    xsltLoadType type) {
    if (current_session == nullptr) {
        return outer_hooks.load.load()(address, dictionary, options, context, type);
    }
    return current_session->load_named(address, dictionary, type != XSLT_LOAD_DOCUMENT);
}

__attribute__((format(printf, 2, 3))) void complain_hook(void*, const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    if (current_session != nullptr) {
        current_session->complain(format, arguments);
    } else {
        std::array<char, 1024> text{};
        std::vsnprintf(text.data(), text.size(), format, arguments);
        outer_hooks.complain.load()(outer_hooks.complain_context, "%s", text.data());
    }
    va_end(arguments);
}

// A host may have set its own since the last session; then ours go in front of them.
void set_hooks() {
    static const bool registered = (xmlInitParser(), exsltRegisterAll(), true);
    static_cast<void>(registered);
    const std::lock_guard lock(sessions_lock);
    ++sessions;
    if (xsltDocDefaultLoader != load_hook) {
        outer_hooks.load = xsltDocDefaultLoader;
        xsltSetLoaderFunc(load_hook);
    }
    if (xsltGenericError != complain_hook) {
        outer_hooks.complain = xsltGenericError;
        outer_hooks.complain_context = xsltGenericErrorContext;
        xsltSetGenericErrorFunc(nullptr, complain_hook);
    }
}

void restore_hooks() {
    const std::lock_guard lock(sessions_lock);
    if (--sessions > 0) return;
    if (xsltDocDefaultLoader == load_hook) xsltSetLoaderFunc(outer_hooks.load);
    if (xsltGenericError == complain_hook) {
        xsltSetGenericErrorFunc(outer_hooks.complain_context, outer_hooks.complain);
    }
}

[[noreturn]] void fail_to_open(const std::string& path, const std::string& reason) {
    throw PlatformError(error_number::kUnexpected, "The style sheet could not be opened: " +
                                                       to_name(to_path(path).filename()) + ": " +
                                                       reason + ".");
}

std::string read_file(const SheetFile& file, std::size_t limit) {
    std::error_code error;
    const auto status = std::filesystem::status(to_path(file.path), error);
    if (!std::filesystem::exists(status)) {
        fail_to_open(file.path,
                     std::make_error_code(std::errc::no_such_file_or_directory).message());
    }
    if (!std::filesystem::is_regular_file(status)) fail_to_open(file.path, "Not a file");
    if (file.size > limit) fail_to_open(file.path, "Too large");
    std::ifstream stream(to_path(file.path), std::ios::binary);
    std::string content(static_cast<std::size_t>(file.size), '\0');
    if (!stream || !stream.read(content.data(), static_cast<std::streamsize>(content.size()))) {
        fail_to_open(file.path, "It cannot be read");
    }
    return content;
}

bool has_scheme(std::string_view address) {
    const std::size_t mark = address.find_first_of(":/?#");
    const bool is_drive = kHasDrives && mark == 1;
    return mark != std::string_view::npos && address[mark] == ':' && !is_drive;
}

// The file that an address names; empty when it is none.
std::string local_path(std::string_view address) {
    constexpr std::string_view kFileScheme = "file:";
    if (text::equal_ignoring_case(address.substr(0, kFileScheme.size()), kFileScheme)) {
        address.remove_prefix(kFileScheme.size());
        constexpr std::string_view kThisHost = "//localhost/";
        if (address.starts_with(kThisHost)) address.remove_prefix(kThisHost.size() - 1);
        if (address.starts_with("///")) address.remove_prefix(2);
    } else if (has_scheme(address)) {
        return {};
    }
    if (address.starts_with("//")) return {};  // another host
    const std::string escaped(address);
    char* const plain = xmlURIUnescapeString(escaped.c_str(), 0, nullptr);
    if (plain == nullptr) throw std::bad_alloc();
    std::string path(plain);
    xmlFree(plain);
    std::error_code error;
    const bool as_written = std::filesystem::exists(to_path(escaped), error) &&
                            !std::filesystem::exists(to_path(path), error);
    return as_written ? escaped : path;
}

std::string one_line(std::string_view text) {
    text = text.substr(0, text.find_first_of("\r\n"));
    constexpr std::size_t kLongest = 300;
    return std::string(text::first(text.substr(0, text.find_last_not_of(' ') + 1), kLongest));
}

std::string with_place(std::string_view what, const std::string& where) {
    if (!what.empty() && what.back() == '.') what.remove_suffix(1);
    if (what.empty() || where.empty()) return std::string(what) + where;
    return std::string(what) + " (" + where + ")";
}

// "runtime error: file /a/b.xsl line 1 element x" without the folder.
std::string place(std::string_view text) {
    std::string where = one_line(text);
    const std::size_t file = where.find(" file ");
    const std::size_t line = where.rfind(" line ");
    if (file == std::string::npos || line == std::string::npos) return where;
    const std::size_t name = std::max(where.find_last_of('/', line) + 1, file + 6);
    return where.substr(name);
}

}  // namespace

SheetFile look_at(const std::string& path) {
    SheetFile file{path, {}, 0};
    std::error_code error;
    file.changed = std::filesystem::last_write_time(to_path(path), error);
    if (error) file.changed = {};
    file.size = std::filesystem::file_size(to_path(path), error);
    if (error) file.size = 0;
    return file;
}

SheetSession::SheetSession(const std::string& sheet)
    : folder_(to_path(sheet).parent_path()), outer_(current_session) {
    set_hooks();
    outer_report_ = xmlStructuredError;
    outer_report_context_ = xmlStructuredErrorContext;
    outer_remark_ = xmlGenericError;
    outer_remark_context_ = xmlGenericErrorContext;
    xmlSetStructuredErrorFunc(this, report);
    xmlSetGenericErrorFunc(this, remark);
    current_session = this;
}

SheetSession::~SheetSession() {
    current_session = outer_;
    xmlSetStructuredErrorFunc(outer_report_context_, outer_report_);
    xmlSetGenericErrorFunc(outer_remark_context_, outer_remark_);
    restore_hooks();
}

// In the sheet's folder or below it, also by what links lead to.
bool SheetSession::is_neighbour(const std::string& path) const {
    const std::filesystem::path folder =
        std::filesystem::canonical(folder_.empty() ? "." : folder_);
    const std::filesystem::path file = std::filesystem::weakly_canonical(to_path(path));
    return std::mismatch(folder.begin(), folder.end(), file.begin(), file.end()).first ==
           folder.end();
}

xmlDocPtr SheetSession::load(const std::string& path, xmlDictPtr dictionary) {
    files_.push_back(look_at(path));  // before it is read: a change meanwhile is seen next time
    const XmlLimits limits;
    const std::string content = read_file(files_.back(), limits.bytes);
    XmlReader reader(content, XmlReader::Source::kFile, limits);
    std::string address = path;
    if (kHasDrives) std::replace(address.begin(), address.end(), '\\', '/');
    reader.build_document(address, dictionary);
    if (const auto error = reader.parse()) {
        const std::string line =
            reader.error_line() > 0 ? ", line " + std::to_string(reader.error_line()) : "";
        throw PlatformError(
            error->code, "The style sheet is not well-formed: " + one_line(error->reason) + " (" +
                             to_name(to_path(path).filename()) + line + ").");
    }
    return reader.take_document();
}

xmlDocPtr SheetSession::load_named(const xmlChar* address, xmlDictPtr dictionary,
                                   bool is_sheet) noexcept {
    memory_ended_ = memory_ended_ || errno == ENOMEM;  // reading a file forgets it
    try {
        const std::string path = local_path(reinterpret_cast<const char*>(address));
        if (path.empty()) {
            what_ = "Only files can be read";
            return nullptr;
        }
        if (!is_neighbour(path)) {
            what_ = "Only files beside the style sheet can be read";
            has_strayed_ = true;
            return nullptr;
        }
        const std::size_t known = files_.size();
        xmlDocPtr document = load(path, dictionary);
        if (!is_sheet) files_.resize(known);  // read anew at each use
        return document;
    } catch (const std::bad_alloc&) {
        memory_ended_ = true;
        return nullptr;
    } catch (const std::exception& error) {
        if (is_sheet && what_.empty()) what_ = error.what();
        return nullptr;
    }
}

// The library writes an error in two calls: where it is, then what it is. A message of the sheet's
// own comes as the second alone, and is dropped.
void SheetSession::complain(const char* format, std::va_list arguments) noexcept {
    if (format == nullptr) return;
    try {
        std::array<char, 1024> text{};
        std::vsnprintf(text.data(), text.size(), format, arguments);
        const bool is_text = std::strcmp(format, "%s") == 0;
        if (!is_text && std::string_view(format).starts_with("%s")) {
            if (where_.empty()) where_ = place(text.data());
            awaits_text_ = true;
        } else if (is_text && awaits_text_) {
            awaits_text_ = false;
            note(text.data());
        }
    } catch (const std::bad_alloc&) {
        memory_ended_ = true;
    }
}

void SheetSession::complain_to(void* session, const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    static_cast<SheetSession*>(session)->complain(format, arguments);
    va_end(arguments);
}

void SheetSession::report(void* session, xmlErrorPtr error) {
    auto& self = *static_cast<SheetSession*>(session);
    if (error->code == XML_ERR_NO_MEMORY) self.memory_ended_ = true;
    if (error->level >= XML_ERR_ERROR && error->message != nullptr) self.note(error->message);
}

void SheetSession::remark(void* session, const char* format, ...) {
    std::array<char, 1024> text{};
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text.data(), text.size(), format, arguments);
    va_end(arguments);
    static_cast<SheetSession*>(session)->note(text.data());
}

void SheetSession::note(const char* what) noexcept {
    try {
        if (what_.empty()) what_ = one_line(what);
    } catch (const std::bad_alloc&) {
        memory_ended_ = true;
    }
}

std::string SheetSession::complaint() const { return with_place(what_, where_); }

std::string SheetSession::discreet_complaint() const {
    constexpr std::string_view kRefused = " refused";
    std::string what = what_.substr(0, what_.find(" for "));  // an address follows
    if (what != what_ && what_.ends_with(kRefused)) what += kRefused;
    const std::size_t open = what.find_first_of("'\"");
    const std::size_t close = what.find_last_of("'\"");
    if (open != std::string::npos) {
        what.replace(open + 1, close > open ? close - open - 1 : std::string::npos, "...");
    }
    return with_place(what, where_);
}

}  // namespace zr
