#include "bureau_gateway/australia/catalogue.h"

#include <algorithm>
#include <array>

namespace zr::gateway::australia {
namespace {

constexpr std::array kConsumer = {
    CodeRow{"CM", "Chattel Mortgage"},
    CodeRow{"CC", "Continuing Credit Contract"},
    CodeRow{"DB", "Deferred Payment Debit Card"},
    CodeRow{"R", "Equipment Hire or Rental"},
    CodeRow{"LC", "Loan Contract"},
    CodeRow{"OD", "Overdraft"},
    CodeRow{"RM", "Real Property Mortgage"},
    CodeRow{"TC", "Telecommunication services"},
    CodeRow{"T", "Terms"},
    CodeRow{"UA", "Utilities"},
    CodeRow{"CH", "Cheque Account"},  // last, so that the others are a prefix without it
};
constexpr std::span kConsumerWithoutCheque = std::span(kConsumer).first<10>();

constexpr std::array kCommercial = {
    CodeRow{"7", "7 Day Account"},
    CodeRow{"30", "30 Day Account"},
    CodeRow{"60", "60 Day Account"},
    CodeRow{"90", "90 Day Account"},
    CodeRow{"OD", "Bank Overdraft"},
    CodeRow{"BS", "Bill of Sale"},
    CodeRow{"BF", "Bridging Finance"},
    CodeRow{"CD", "Cash On Delivery"},
    CodeRow{"CH", "Cheque"},
    CodeRow{"CR", "Commercial Rental"},
    CodeRow{"CP", "Credit Card"},
    CodeRow{"D", "Dealership"},
    CodeRow{"DB", "Deferred Payment Debit Card"},
    CodeRow{"F", "Factored Account"},
    CodeRow{"HC", "Hire Purchase"},
    CodeRow{"L", "Leasing"},
    CodeRow{"LP", "Lending Proposal"},
    CodeRow{"PL", "Personal Loan"},
    CodeRow{"PF", "Premium Finance"},
    CodeRow{"RM", "Real Property Mortgage"},
    CodeRow{"SR", "Search Request"},
    CodeRow{"TC", "Telecommunication services"},
    CodeRow{"TF", "Trade Finance"},
    CodeRow{"UA", "Utilities"},
    CodeRow{"WF", "Wholesale Finance"},
};

constexpr std::array kOrganisations = {
    CodeRow{"PTY", "Proprietary"},       CodeRow{"P/L", "Proprietary Limited"},
    CodeRow{"N/L", "No Liability"},      CodeRow{"INC", "Incorporated"},
    CodeRow{"LTD", "Limited Liability"}, CodeRow{"R/B", "Registered Body"},
};

// name, service code, enquiry type, consumer file, commercial file, scored, area level risk,
// account types
constexpr std::array kEnquiries = {
    EnquiryRow{"consumer-enquiry", "BCA001", "credit-application", true, false, false, false,
               kConsumerWithoutCheque},
    EnquiryRow{"individual-consumer-scored-enquiry", "BCA003", "credit-application", true, false,
               true, false, kConsumerWithoutCheque},
    EnquiryRow{"individual-consumer-plus-alr-scored-enquiry", "BCA003", "credit-application", true,
               false, true, true, kConsumerWithoutCheque},
    EnquiryRow{"consumer-plus-commercial-enquiry", "BCA001", "credit-application", true, true,
               false, false, kConsumer},
    EnquiryRow{"commercial-enquiry", "BCA001", "credit-enquiry", false, true, false, false,
               kCommercial},
    EnquiryRow{"individual-commercial-scored-enquiry", "BCA003", "credit-enquiry", false, true,
               true, false, kCommercial},
    EnquiryRow{"commercial-plus-consumer-enquiry", "BCA001", "credit-enquiry", true, true, false,
               false, kCommercial},
    EnquiryRow{"individual-commercial-plus-consumer-scored-enquiry", "BCA003", "credit-enquiry",
               true, true, true, false, kCommercial},
};

constexpr auto kStreetTypes = std::to_array<std::string_view>({
    "ACC", "AL",  "AWY", "AMB", "ANC", "APP", "ARC", "ATY", "AVE", "BNK", "BAS", "BCH", "BND",
    "BLK", "BLV", "BWL", "BR",  "BRA", "BRK", "BRG", "BWY", "BRW", "BPS", "BYW", "CWY", "CTR",
    "CTW", "CIR", "CLT", "CCT", "CH",  "CRC", "CL",  "CLD", "CMN", "CNC", "CPS", "CNR", "CSO",
    "CRT", "CT",  "CYD", "CVE", "CRS", "CSG", "CRD", "CRW", "CSW", "CDS", "CUT", "DAL", "DEL",
    "DVN", "DIP", "DTR", "DR",  "DRY", "EGE", "ELB", "END", "ENT", "ESP", "EST", "EXP", "EXT",
    "FAY", "FTK", "FTL", "FLT", "FLW", "FTW", "FSR", "FMN", "FWY", "FRT", "FR",  "GAP", "GDN",
    "GDS", "GTE", "GTS", "GL",  "GLN", "GRA", "GRN", "GRD", "GVE", "GLY", "HTS", "HRD", "HWY",
    "HIL", "ITC", "ITS", "JN",  "KEY", "LDG", "LA",  "LWY", "LEE", "LIN", "LK",  "LT",  "LKO",
    "LP",  "LOW", "MAL", "MDR", "MEW", "MWS", "ML",  "MWY", "MT",  "NK",  "OUT", "PDE", "PKL",
    "PS",  "PKW", "PWY", "PRT", "PSS", "PTH", "PZA", "PR",  "PL",  "PTU", "PLZ", "PKT", "PNT",
    "PT",  "PRM", "QUD", "QDG", "QD",  "QY",  "QYS", "RA",  "RMP", "RGE", "RCH", "RES", "RST",
    "RT",  "RID", "RDG", "RDW", "RTW", "RNG", "RI",  "RVR", "RVW", "RVA", "RD",  "RDS", "RSD",
    "RDY", "RDE", "RBL", "RTY", "RND", "RTE", "ROW", "RUE", "RUN", "SWY", "SDG", "SLP", "SND",
    "SPR", "SQ",  "STA", "SHW", "STP", "ST",  "STR", "STS", "STI", "TRN", "TCE", "THF", "TWY",
    "TOP", "TOR", "TWR", "TR",  "TRL", "TRR", "TRI", "TKW", "TUR", "UNP", "UPR", "VAL", "VDT",
    "VW",  "VLA", "VST", "WD",  "WK",  "WKY", "WAY", "WF",  "WND", "YRD",
});

}  // namespace

const EnquiryRow* find_enquiry(std::string_view name) {
    const auto row = std::find_if(kEnquiries.begin(), kEnquiries.end(),
                                  [&](const EnquiryRow& each) { return each.name == name; });
    return row == kEnquiries.end() ? nullptr : &*row;
}

std::span<const EnquiryRow> enquiry_rows() { return kEnquiries; }
std::span<const CodeRow> consumer_account_types() { return kConsumerWithoutCheque; }
std::span<const CodeRow> commercial_account_types() { return kCommercial; }
std::span<const CodeRow> organisation_types() { return kOrganisations; }
std::span<const std::string_view> street_type_codes() { return kStreetTypes; }

}  // namespace zr::gateway::australia
