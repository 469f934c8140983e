#include "bureau_gateway/australia/vocabulary.h"

#include <array>

namespace zr::gateway::australia::words {
namespace {

template <class... Texts>
constexpr auto list(const Texts&... texts) {
    return std::array<std::string_view, sizeof...(texts)>{texts...};
}

constexpr std::array kSuburbs = {
    Suburb{"NORTH SAMPLEFORD", "NSW", "2999"}, Suburb{"PORT EXAMPLE", "NSW", "2998"},
    Suburb{"MOCKHAM", "VIC", "3999"},          Suburb{"SPECIMEN BAY", "VIC", "3998"},
    Suburb{"TRIAL CREEK", "QLD", "4999"},      Suburb{"FICTION HEIGHTS", "QLD", "4998"},
    Suburb{"PLACEHOLDER", "SA", "5999"},       Suburb{"DUMMY FLAT", "WA", "6999"},
    Suburb{"TESTERTON", "TAS", "7999"},        Suburb{"LAKE NOWHERE", "ACT", "2699"},
    Suburb{"INVENTED SPRINGS", "NT", "0899"},
};

constexpr std::array kStreets = {
    Street{"EXAMPLE", "ST"},  Street{"SPECIMEN", "RD"},    Street{"SAMPLE", "AVE"},
    Street{"FICTION", "LA"},  Street{"PLACEHOLDER", "CT"}, Street{"TRIAL", "CRS"},
    Street{"MOCK", "PDE"},    Street{"IMAGINARY", "HWY"},  Street{"CAFÉ", "PL"},
    Street{"NOWHERE", "CDS"}, Street{"TEMPLATE", "TCE"},   Street{"INVENTED", "CCT"},
};

constexpr auto kProperties = list("ROSE COTTAGE", "MOCK MANOR", "THE OLD MILL", "LOT 7");

constexpr auto kBusinesses =
    list("Sample Holdings", "Fictional Foods", "Mock Metalwork", "Example Estates",
         "Specimen Software", "Trial Transport", "Nowhere Nominees", "Placeholder Plumbing",
         "Dummy Decor", "Invented Irrigation");

constexpr auto kCourts = list("Local Court of Sampleford", "Magistrates Court of Mockham",
                              "District Court of Trial Creek", "Supreme Court of Fiction");

constexpr auto kDefaultReasons =
    list("Payment Default", "Serious Credit Infringement", "Clearout", "Payment overdue 60 days");

constexpr auto kFileNotes =
    list("Identity documents reported lost; verify identity before lending.",
         "Applicant disputes the amount of a listing; under review.",
         "Known also under a former name.", "Correspondence returned <not at this address>.");

constexpr auto kFileMessages =
    list("This file may be incomplete: details are being updated.",
         "File merged with another of the same person.", "Some enquiries are older than 4 years.");

constexpr auto kPublicMessages = list("Public record information is supplied by third parties.",
                                      "Directorship details may be up to 90 days old.");

constexpr auto kStates = list("NSW", "VIC", "QLD", "SA", "WA", "TAS", "ACT", "NT");

constexpr auto kBankruptcyNarratives =
    list("Petition accepted by the registrar.", "Agreement with creditors accepted.",
         "Sequestration order made on creditor's petition.");

constexpr auto kRiskFactors =
    list("Number of recent credit enquiries", "Age of file", "Defaults on file", "Court actions",
         "Time at current address", "Mix of credit types", "Directorships held");

}  // namespace

std::span<const Suburb> suburbs() { return kSuburbs; }
std::span<const Street> streets() { return kStreets; }
std::span<const std::string_view> properties() { return kProperties; }
std::span<const std::string_view> businesses() { return kBusinesses; }
std::span<const std::string_view> courts() { return kCourts; }
std::span<const std::string_view> default_reasons() { return kDefaultReasons; }
std::span<const std::string_view> file_notes() { return kFileNotes; }
std::span<const std::string_view> file_messages() { return kFileMessages; }
std::span<const std::string_view> public_messages() { return kPublicMessages; }
std::span<const std::string_view> states() { return kStates; }
std::span<const std::string_view> bankruptcy_narratives() { return kBankruptcyNarratives; }
std::span<const std::string_view> risk_factors() { return kRiskFactors; }

}  // namespace zr::gateway::australia::words
