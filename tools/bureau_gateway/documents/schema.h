// Requests held against a schema document, and against the rules that stand in it beside the
// schema:
//   <rule at="individual" test="count(address) = 1" code="E603" type="structure">One is
//   required</rule>
// in an appinfo; `at` finds the elements, seen from the request, of each of which `test` must hold.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bureau_gateway/documents/xml.h"

namespace zr::gateway {

/// One complaint about a request's content. It repeats nothing that the applicant said.
struct Complaint {
    std::string code;
    std::string type;  ///< mandatory, length, format, value or structure
    std::string description;
    std::string container;  ///< the element that the complaint is in
    xmlNode* at = nullptr;
};

class Schema {
  public:
    /// Throws std::runtime_error that names the file.
    explicit Schema(const std::filesystem::path& file);
    ~Schema();

    /// Every complaint, in the order of the document. `prepare` readies the XPath of the rules.
    std::vector<Complaint> check(xmlNode& element,
                                 const std::function<void(XPath&)>& prepare) const;

  private:
    class Compiled;
    Document document_;
    std::unique_ptr<Compiled> compiled_;
};

}  // namespace zr::gateway
