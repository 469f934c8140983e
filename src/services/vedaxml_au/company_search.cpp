#include "services/vedaxml_au/company_search.h"

#include <string>

#include "services/vedaxml_au/reply_paths.h"
#include "xml/zr_xml_utilities.h"

namespace zr::australia {
namespace {

/// The number that the candidate can be asked for by: its heading says which one it is.
std::string company_number(const ReplyPaths& paths, XmlNode candidate) {
    const std::string heading = ZRXMLUtilities::GetSubNodeString(candidate, paths.number_heading);
    if (heading == "ACN") {
        return ZRXMLUtilities::GetSubNodeString(candidate, paths.organisation_number);
    }
    if (heading.empty()) {
        return ZRXMLUtilities::GetSubNodeString(candidate, paths.business_number);
    }
    return {};
}

}  // namespace

void add_company_selections(CompanySelections& selections, XmlNode root) {
    const ReplyPaths& paths = reply_paths();
    for (const XmlNode candidate : root.select(paths.candidate)) {
        const auto text = [candidate](const XmlPath& path) {
            return ZRXMLUtilities::GetSubNodeString(candidate, path);
        };
        CompanySelection& selection = selections.AddSelection(text(paths.candidate_name));
        for (const auto& field : paths.candidate_fields) {
            (selection.*field.set)(text(field.path));
        }
        const std::string entity_type = text(paths.entity_type);
        selection.CompanyTypeDescription(entity_type.empty() ? selection.CompanyType()
                                                             : entity_type);
        selection.CompanyNumber(company_number(paths, candidate));
        selection.BureauFileId(text(paths.candidate_reference));
    }
}

}  // namespace zr::australia
