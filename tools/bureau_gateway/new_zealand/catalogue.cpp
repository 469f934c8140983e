#include "bureau_gateway/new_zealand/catalogue.h"

#include <algorithm>
#include <array>

namespace zr::gateway::new_zealand {
namespace {

constexpr std::array kAccountTypes = {
    CodeRow{"30", "30 Day Account"},
    CodeRow{"60", "60 Day Account"},
    CodeRow{"7", "7 Day Account"},
    CodeRow{"90", "90 Day Account"},
    CodeRow{"B", "Budget Account"},
    CodeRow{"BF", "Bridging Finance"},
    CodeRow{"BS", "Bill Of Sale"},
    CodeRow{"CC", "Credit Card"},
    CodeRow{"CD", "Cash On Delivery"},
    CodeRow{"CE", "Consumer Enquiry"},
    CodeRow{"CF", "Consumer Finance"},
    CodeRow{"CM", "Chattel Mortgage"},
    CodeRow{"CQ", "Cheque (Personal)"},
    CodeRow{"CS", "Credit Sale Contract"},
    CodeRow{"DC", "Damages Claim"},
    CodeRow{"DE", "Director Enquiry"},
    CodeRow{"F", "Factored Account"},
    CodeRow{"HB", "Hire Purchase (Boat)"},
    CodeRow{"HC", "Hire Purchase (Commercial)"},
    CodeRow{"HH", "Hire Purchase (Household)"},
    CodeRow{"HM", "Hire Purchase (Vehicle)"},
    CodeRow{"L", "Leasing"},
    CodeRow{"LC", "Loan Contract"},
    CodeRow{"LP", "Lending Proposal"},
    CodeRow{"M", "Monthly Account"},
    CodeRow{"NS", "Not Stated"},
    CodeRow{"O", "Optional"},
    CodeRow{"OD", "Bank Overdraft"},
    CodeRow{"PE", "Professional Enquiry"},
    CodeRow{"PL", "Personal Loan"},
    CodeRow{"R", "Rental"},
    CodeRow{"RM", "Real Estate Mortgage"},
    CodeRow{"SV", "Savings Account"},
    CodeRow{"T", "Term Account"},
    CodeRow{"TC", "Title Check"},
};
constexpr auto kAccountTypeCodes = [] {
    std::array<std::string_view, kAccountTypes.size()> codes;
    std::transform(kAccountTypes.begin(), kAccountTypes.end(), codes.begin(),
                   [](const CodeRow& row) { return row.code; });
    return codes;
}();

constexpr auto kStreetTypes = std::to_array<std::string_view>(
    {"AC", "AW", "AL", "AY", "AM", "AN", "AX", "AP", "AR", "AT", "AH", "AV", "BK", "BI", "BY", "BH",
     "BT", "BN", "BB", "BF", "BM", "BL", "BC", "BR", "BA", "BE", "BS", "BG", "BW", "BO", "BZ", "BP",
     "BX", "CP", "CW", "C9", "CE", "C6", "CH", "CI", "C7", "CC", "CX", "CA", "CF", "CL", "CD", "CM",
     "C1", "CN", "CB", "C4", "C5", "CO", "CT", "CZ", "CY", "CV", "CK", "CR", "CS", "CQ", "CG", "C2",
     "C3", "C8", "CU", "CJ", "DA", "DL", "DT", "DP", "DS", "DV", "DN", "DR", "DW", "DU", "EA", "EG",
     "EL", "EM", "ED", "EN", "ES", "ET", "EW", "EX", "FA", "FQ", "FR", "FM", "FN", "FE", "FY", "FI",
     "FC", "FX", "FL", "FB", "FO", "FW", "FD", "FH", "FS", "FK", "FJ", "FT", "FZ", "FF", "FG", "GP",
     "GD", "GS", "GT", "GL", "GN", "GA", "GG", "GO", "GR", "GU", "HB", "HV", "HE", "HT", "HR", "HW",
     "HL", "HS", "IC", "IT", "IS", "JN", "KY", "KB", "LA", "LD", "LN", "LY", "LE", "LR", "LS", "LG",
     "LH", "LI", "LK", "LL", "LZ", "LT", "LO", "LW", "MA", "MD", "MW", "MR", "ME", "ML", "MI", "MS",
     "MY", "MU", "MN", "MT", "NV", "NK", "OK", "OR", "OL", "OV", "PC", "PU", "PM", "PD", "PK", "PN",
     "PY", "PQ", "PS", "PA", "PH", "PW", "PX", "PL", "PE", "PZ", "PB", "PT", "PO", "PI", "PR", "QD",
     "QL", "QT", "QU", "RB", "RM", "RJ", "RA", "RP", "RH", "RF", "RV", "RT", "RE", "RI", "RG", "R3",
     "RK", "RS", "RR", "R2", "RD", "R1", "RY", "RC", "RL", "RQ", "RN", "RO", "RW", "RX", "RU", "RZ",
     "SV", "SW", "SH", "SI", "SL", "SO", "SA", "SC", "SR", "SQ", "SZ", "SN", "SE", "SS", "SB", "SG",
     "SD", "SM", "ST", "SP", "SY", "SU", "TA", "TC", "TS", "TF", "TW", "TP", "TO", "TZ", "TK", "TR",
     "TL", "TV", "TY", "TE", "TI", "TX", "TN", "TU", "UP", "UR", "VL", "VY", "VN", "VD", "VW", "VS",
     "VE", "VI", "VA", "VU", "WD", "WK", "WW", "WA", "WY", "WF", "WH", "WO", "WN", "YD"});

constexpr auto kNoteTypes = std::to_array<std::string_view>(
    {"200", "201", "202", "203", "204", "205", "206", "207", "208", "209", "210", "211", "212",
     "213", "214", "215", "216", "217", "218"});
constexpr auto kCorrectionStatuses =
    std::to_array<std::string_view>({"CA", "CO", "DS", "RJ", "RS"});
constexpr auto kInsolvencyTypes =
    std::to_array<std::string_view>({"TYPCL", "TYPCP", "TYPDP", "TYPID", "TYPIL", "TYPNP", "TYPPA",
                                     "TYPRM", "TYPSO", "TYP99", "TYPVA", "TYPVL"});
constexpr auto kInsolvencyStatuses = std::to_array<std::string_view>(
    {"STAAN", "STADA", "STACM", "STADC", "STACB", "STACN", "STACS", "STACL", "STACV", "STADD",
     "STADE", "STARM", "STATD", "STA99"});
constexpr auto kInsolvencyCourts = std::to_array<std::string_view>(
    {"COR01", "COR02", "COR03", "COR04", "COR05", "COR06", "COR07", "COR08",
     "COR09", "COR10", "COR11", "COR12", "COR13", "COR14", "COR15", "COR16",
     "COR17", "COR18", "COR19", "COR20", "COR21", "COR22", "COR99"});

}  // namespace

std::span<const CodeRow> account_types() { return kAccountTypes; }
std::span<const std::string_view> account_type_codes() { return kAccountTypeCodes; }
std::span<const std::string_view> street_type_codes() { return kStreetTypes; }
std::span<const std::string_view> note_types() { return kNoteTypes; }
std::span<const std::string_view> correction_statuses() { return kCorrectionStatuses; }
std::span<const std::string_view> insolvency_types() { return kInsolvencyTypes; }
std::span<const std::string_view> insolvency_statuses() { return kInsolvencyStatuses; }
std::span<const std::string_view> insolvency_courts() { return kInsolvencyCourts; }

}  // namespace zr::gateway::new_zealand
