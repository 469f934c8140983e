// The register of companies: every number is one company's, and a name finds numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bureau_gateway/invention/file_key.h"
#include "bureau_gateway/message/xml_reader.h"
#include "bureau_gateway/message/xml_writer.h"

namespace zr::gateway::new_zealand {

struct FormerName {
    std::string name;
    int days = 0;  ///< since it was taken up
};

struct Company {
    std::string number;  ///< up to seven digits, without leading zeros
    std::uint64_t seed = 0;
    std::string name;
    std::vector<FormerName> former_names;
    Burden burden = Burden::kAverage;
    std::string_view area;
    std::string_view status;
};

/// The company of a number; none for numbers that end with 000.
std::optional<Company> find_company(std::string_view number);

/// Writes the candidates for the registration-number or company-name of a request. A name finds
/// companies each of whose words begins a word of their name, now or formerly; `least_bytes` not 0:
/// so much of the register instead.
void write_candidates(XmlWriter& xml, const Element& request, std::size_t least_bytes);

}  // namespace zr::gateway::new_zealand
