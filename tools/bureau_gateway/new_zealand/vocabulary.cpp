#include "bureau_gateway/new_zealand/vocabulary.h"

#include <array>

namespace zr::gateway::new_zealand::words {
namespace {

template <class... Texts>
constexpr auto list(const Texts&... texts) {
    return std::array<std::string_view, sizeof...(texts)>{texts...};
}

constexpr std::array kPlaces = {
    Place{"SAMPLE BAY", "PORT SPECIMEN"},
    Place{"MOCKBURN", "PORT SPECIMEN"},
    Place{"NORTH TRIAL", "EXAMPLEDALE"},
    Place{"FICTION POINT", "EXAMPLEDALE"},
    Place{"TE MOKO", "NEW PLACEHOLDER"},
    Place{"ŌTESTI", "NEW PLACEHOLDER"},
    Place{"NOWHERE FLAT", "DUMMY HARBOUR"},
    Place{"", "DUMMY HARBOUR"},
    Place{"INVENTED GORGE", ""},
    Place{"WAITEST", "LAKE IMAGINARY"},
};

constexpr auto kStreets = list("EXAMPLE", "SPECIMEN", "SAMPLE", "FICTION", "PLACEHOLDER", "TRIAL",
                               "MOCK", "IMAGINARY", "PŌTEST", "NOWHERE", "TEMPLATE", "INVENTED");

constexpr auto kCourts = list("District Court of Port Specimen", "District Court of Exampledale",
                              "High Court of New Placeholder", "Disputes Tribunal");

constexpr auto kIndustries =
    list("Banking", "Non-Depository Financing", "Electricity Retailing",
         "Wired Telecommunications Network Operation", "Department Stores", "Motor Vehicle Hiring");

constexpr auto kCollectors = list("Sample Recoveries", "Fictional Collections",
                                  "Mock & Placeholder Receivables", "Trial Credit Control");

constexpr auto kNotes =
    list("Applicant has asked that identity be verified with care.",
         "Amount is disputed; the provider has been asked for <proof>.",
         "Details corrected at the applicant's request.", "Mail returned: gone, no address.");

constexpr auto kNarratives =
    list("Advertised in the Sample Gazette.", "Settled by instalments & interest.",
         "Application of the creditor \"in person\".", "Published in the Specimen Herald.",
         "Entered by consent of both parties.");

constexpr auto kCorrectionTexts =
    list("The amount has been disputed with the provider.", "The address was not the applicant's.",
         "The applicant states that the debt was paid in full.",
         "The record belonged to a person of the same name.");

constexpr auto kNoticeTypes = list("Change of Name", "Trade Protection Notice", "Deceased Estate",
                                   "Appointment of Receiver", "Intention to Remove");

constexpr auto kGeneralMessages =
    list("This report may be incomplete: some details are being updated.",
         "Planned maintenance: the gateway rests on Sunday from 02:00 to 04:00.",
         "Corrections are shown with the records that they belong to.");

// Clean, Adverse and Bellbird come first: what the companies of the first two have on file is as
// they are called, and the third is for demonstrations, with as much on file.
constexpr auto kCompanyRoots = list(
    "Clean", "Adverse", "Bellbird", "Zarnow", "Fantail", "Kākā", "Weka", "Sample", "Specimen",
    "Mock", "Fictional", "Placeholder", "Imaginary", "Exampledale", "Trial", "Nowhere", "Template",
    "Invented", "Dummy", "Pseudo", "Testwell", "Harbourless", "Long Cloud", "Southern Sample");

constexpr auto kCompanyTrades = list("Holdings", "Trading", "Foods", "Motors", "Joinery", "Dairy",
                                     "Software", "Transport", "Nurseries", "Finance", "Builders",
                                     "Farms", "Textiles", "Tours", "Electrical", "Properties");

constexpr auto kCompanyVariants =
    list("", "(2004)", "Group", "New Zealand", "Services", "Management", "No. 2", "& Partners");

}  // namespace

std::span<const Place> places() { return kPlaces; }
std::span<const std::string_view> streets() { return kStreets; }
std::span<const std::string_view> courts() { return kCourts; }
std::span<const std::string_view> industries() { return kIndustries; }
std::span<const std::string_view> collectors() { return kCollectors; }
std::span<const std::string_view> notes() { return kNotes; }
std::span<const std::string_view> narratives() { return kNarratives; }
std::span<const std::string_view> correction_texts() { return kCorrectionTexts; }
std::span<const std::string_view> notice_types() { return kNoticeTypes; }
std::span<const std::string_view> general_messages() { return kGeneralMessages; }
std::span<const std::string_view> company_roots() { return kCompanyRoots; }
std::span<const std::string_view> company_trades() { return kCompanyTrades; }
std::span<const std::string_view> company_variants() { return kCompanyVariants; }

}  // namespace zr::gateway::new_zealand::words
