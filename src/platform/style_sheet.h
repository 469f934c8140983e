// XSLT 1.0 style sheets, compiled once and kept until their files change.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zr {

/// Values for a sheet's global parameters (xsl:param), by name; one that the sheet lacks is nothing
/// to it.
using SheetParameters = std::vector<std::pair<std::string, std::string>>;

/// The style sheets that one facade has used. Runs XSLT 1.0 with the EXSLT and msxsl:node-set
/// functions; a sheet may include and read files in its folder and below, but not write, create
/// folders or reach the network; its time, tree, text and output are bounded. One thread at a time.
class StyleSheets {
  public:
    StyleSheets();
    ~StyleSheets();
    StyleSheets(const StyleSheets&) = delete;
    StyleSheets& operator=(const StyleSheets&) = delete;

    /// Transforms the XML text with the sheet in `file_name`; the output is text (UTF-8) as the
    /// sheet's xsl:output asks, without a byte-order mark. Throws PlatformError when the text or
    /// the sheet cannot be read, parsed or run, std::bad_alloc when memory ends.
    std::string transform(std::string_view xml, const std::string& file_name,
                          const SheetParameters& parameters = {});

  private:
    struct Cache;
    std::unique_ptr<Cache> cache_;
};

}  // namespace zr
