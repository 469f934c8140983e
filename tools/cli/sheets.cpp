#include "cli/sheets.h"

#include <filesystem>
#include <system_error>

#include "values/text.h"

namespace zr::cli {
namespace {

// Service and file. Australian B2Bay reports are in the layout of VedaXML.
constexpr struct {
    std::string_view service;
    std::string_view file;
} kSheets[] = {
    {"VedaXMLAU", "vedaxml_au.xsl"},   {"B2BayAU", "vedaxml_au.xsl"},
    {"VedaXMLNZ", "vedaxml_nz.xsl"},   {"B2BayNZ", "b2bay_nz.xsl"},
    {"B2BayNZ_V2", "b2bay_nz_v2.xsl"},
};

}  // namespace

std::string installed_sheet(std::string_view service) {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    for (const auto& row : kSheets) {
        if (text::equal_ignoring_case(row.service, service)) {
            const std::filesystem::path sheet =
                program.parent_path().parent_path() / "share/zrcreditbureau/xslt" / row.file;
            return std::filesystem::exists(sheet, error) ? sheet.string() : std::string();
        }
    }
    return {};
}

}  // namespace zr::cli
